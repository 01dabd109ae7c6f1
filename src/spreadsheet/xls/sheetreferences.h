#pragma once

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xls/globalrecords.h"
#include "spreadsheet/xls/recordwriter.h"

#include <QHash>

namespace spreadsheet {

/// The numbers by which formulas refer to sheets: those of the loaded file and, behind them, those that new formulas
/// need.
class SheetReferences
{
public:
    /// `records` are those of the loaded file; none for a new workbook.
    SheetReferences(const BookData &book, const GlobalRecords &records);

    /// Number for the sheet of a name, in any case of letters; below 0 when there is none.
    int numberOf(const QString &name);

    /// True when the workbook has an EXTERNSHEET record of its own that write() takes the place of.
    bool isInFile() const { return m_isInFile; }
    /// True when write() has more to write than the file has.
    bool isChanged() const { return m_isChanged; }
    /// Writes a SUPBOOK record for the workbook itself, unless the file has one, and the EXTERNSHEET record.
    void write(RecordWriter &out) const;
    /// Writes a SUPBOOK record of the file, with the present number of sheets when it is about the workbook itself.
    void copyBook(RecordWriter &out, const Record &record) const;

private:
    struct Reference
    {
        quint16 book, first, last;
    };
    void loadReferences(const QByteArray &data);

    const BookData &m_book;
    QHash<QString, int> m_sheets; // by lower-case name
    QHash<int, int> m_numbers;    // by sheet, filled as they are asked for
    std::vector<Reference> m_references;
    int m_ownBook = -1;
    int m_books = 0;
    bool m_hasOwnBook = false; // in the file
    bool m_isInFile = false;
    bool m_isChanged = false;
};

} // namespace spreadsheet
