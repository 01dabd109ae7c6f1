#pragma once

#include "spreadsheet/xls/recordwriter.h"
#include "spreadsheet/xls/savecontext.h"

#include <map>
#include <vector>

namespace spreadsheet {

/// Writes the first part of a workbook stream, which tells of the workbook as a whole.
class GlobalsWriter
{
public:
    GlobalsWriter(SaveContext &context, RecordWriter &out)
        : m_context(context)
        , m_out(out)
    {
    }

    /// Of a new workbook.
    void writeNew();
    /// Of the loaded file, with what the book has beyond it. `isCalculated`: results of formulas are still right.
    void writeChanged(bool isCalculated);
    /// Enters where a sheet begins, by its place in the book.
    void setSheetBegin(size_t sheet, quint32 position);

private:
    void writeRecord(const Record &record, bool isLast);
    void writeWindow();
    void writeSheets();
    void writeSheetEntry(const SheetEntry &sheet);
    void writeStyles();
    void writeBefore(RecordId id);
    void writeSheetIds(const Record &record);
    void writeFormatCheck(const Record &record);
    void writeCalculator(const Record &record);
    void writeAdded(RecordId id);

    SaveContext &m_context;
    RecordWriter &m_out;
    std::vector<int> m_sheetPlaces;    // of the positions of sheets, to be filled in
    std::map<RecordId, size_t> m_last; // record of each kind in the file
    bool m_isCalculated = true;
    std::map<RecordId, size_t> m_addedCounts; // of fonts and formats, so many are written already
    bool m_hasReferences = false, m_hasTexts = false;
};

} // namespace spreadsheet
