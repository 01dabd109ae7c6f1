#pragma once

#include "data/cell.h"
#include "data/dateparser.h"
#include "data/numberreader.h"
#include "outputs/excelformats.h"
#include "outputs/textchanges.h"

#include <QByteArray>
#include <memory>
#include <string_view>
#include <vector>

class CellRows;

namespace spreadsheet {
class Book;
class Format;
class Sheet;
} // namespace spreadsheet

/// Puts names and rows of texts into a sheet, each value as its column's format says, and counts what a sheet can't
/// take as it is.
class SheetRowWriter
{
public:
    /// Both outlive the writer. The formats that it writes with are added to the book.
    SheetRowWriter(spreadsheet::Book *book, spreadsheet::Sheet *sheet, const ExcelFormats &formats, int columnCount);
    ~SheetRowWriter();
    Q_DISABLE_COPY(SheetRowWriter)

    void writeHeader(int sheetRow, const QStringList &names);
    /// Empty cells are left out.
    void writeRow(int sheetRow, const CellRows &cells, int row);

    /// Lines that tell of what was left out or changed.
    QStringList warnings() const;
    /// Which columns hold texts that became other values by themselves.
    const TextChanges &textChanges() const { return m_textChanges; }

private:
    struct Column
    {
        int format = ExcelColumnFormat::Text;
        std::unique_ptr<DateParser> dates; // of a Date column
    };

    spreadsheet::Format *addFormat(int numberFormat, bool bold = false, int color = -1);
    void writeCell(int row, int column, const Cell &cell);
    bool writeTyped(int row, int column, const Cell &cell);
    bool writeBoolean(int row, int column, const Cell &cell);
    bool writeDate(int row, int column, const Cell &cell);
    bool writeNumber(int row, int column, const Cell &cell);
    bool writeFormula(int row, int column, const Cell &cell);
    bool writeTime(int row, int column, const Cell &cell);
    void writeHyperlink(int row, int column, const Cell &cell);
    void writeText(int row, int column, const char *bytes, int size, const spreadsheet::Format *format);
    std::string_view fitted(const char *bytes, int size);

    spreadsheet::Book *m_book;
    spreadsheet::Sheet *m_sheet;
    std::vector<Column> m_columns;
    TextChanges m_textChanges;
    NumberReader m_numbers{false, false};
    const int m_maxRows;
    const int m_maxColumns;
    spreadsheet::Format *m_general;
    spreadsheet::Format *m_text;
    spreadsheet::Format *m_date;
    spreadsheet::Format *m_time;
    spreadsheet::Format *m_link;
    QByteArray m_fitted; // a text that had to be changed
    qint64 m_outside = 0;
    qint64 m_cut = 0;
    qint64 m_lostLinks = 0;
    qint64 m_replacedCharacters = 0;
};
