#pragma once

#include "spreadsheet/sheet.h"
#include "spreadsheet/xls/formula/formulacompiler.h"
#include "spreadsheet/xls/recordwriter.h"
#include "spreadsheet/xls/rowwriter.h"
#include "spreadsheet/xls/savecontext.h"
#include "spreadsheet/xls/sharedformulas.h"

namespace spreadsheet {

/// Writes the rows and cells of a sheet.
class CellTableWriter
{
public:
    /// `shared`: what cells of the sheet in the loaded file share.
    CellTableWriter(SaveContext &context, const Sheet &sheet, SharedFormulas shared, RecordWriter &out);

    /// DIMENSIONS: the used area.
    void writeDimensions();
    /// All ROW records and those of the cells.
    void writeCells();

private:
    using Cells = std::vector<CellRecord>;
    using RowIterator = CellGrid::const_iterator;

    void writeRowCells(int row, const Cells &cells);
    static bool isBlank(const CellRecord &cell);
    static bool isRkNumber(const CellRecord &cell, quint32 *bits);
    void begin(RecordId id, int row, const CellRecord &cell, unsigned dataSize);
    size_t writeNumbers(int row, const Cells &cells, size_t from, quint32 rk);
    size_t writeBlanks(int row, const Cells &cells, size_t from);
    void writeConstant(int row, const CellRecord &cell);
    void writeText(int row, const CellRecord &cell, quint32 text);
    void writeFormula(int row, const CellRecord &cell);
    void writeNewFormula(int row, const CellRecord &cell, const QByteArray &text);
    void writeStoredFormula(int row, const CellRecord &cell, QByteArray stored);
    void writeResultText(quint32 text);
    QString placeOf(int row, const CellRecord &cell) const;
    unsigned format(quint32 number) { return m_context.styles.recordOf(number); }

    SaveContext &m_context;
    const Sheet &m_sheet;
    SharedFormulas m_shared;
    SheetNumbers m_sheetNumbers;
    RecordWriter &m_out;
    RowWriter m_rows;
};

} // namespace spreadsheet
