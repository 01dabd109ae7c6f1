#pragma once

#include "spreadsheet/cellgrid.h"
#include "spreadsheet/sheetlayout.h"
#include "spreadsheet/sizes.h"

#include <string_view>

namespace spreadsheet {

class Format;
struct BookData;

/// A sheet of a book. Rows and columns are 0-based; a place outside the largest sheet of the book's kind reads as empty
/// and can't be written to. A null format stands for the default one, format number 0.
class Sheet
{
public:
    Sheet(BookData *book, const QString &name);
    Q_DISABLE_COPY(Sheet)

    const QString &name() const { return m_name; }

    // The used area, see CellGrid
    int firstRow() const { return m_cells.firstRow(); }
    int lastRow() const { return m_cells.lastRow(); }
    int firstCol() const { return m_cells.firstColumn(); }
    int lastCol() const { return m_cells.lastColumn(); }

    // Reading
    CellType cellType(int row, int column) const;
    bool isFormula(int row, int column) const;
    /// A number, date number or 0 or 1 of a boolean; otherwise 0.
    double readNum(int row, int column) const;
    /// A text; empty for other cells.
    QString readStr(int row, int column) const;
    bool readBool(int row, int column) const { return readNum(row, column) != 0.0; }
    /// True for a number whose format shows a date or time of day, and for a strict date whose format shows no span of
    /// time.
    bool isDate(int row, int column) const;
    bool rowHidden(int row) const;
    bool colHidden(int column) const;
    /// Points; below 0 for the default, and for a row that is as high as its cells need.
    double rowHeight(int row) const;
    /// Characters; below 0 for the default.
    double colWidth(int column) const;
    /// Null for an empty place.
    const Format *cellFormat(int row, int column) const;
    int hyperlinkSize() const { return static_cast<int>(m_layout.hyperlinks.size()); }
    const Hyperlink &hyperlink(int index) const { return m_layout.hyperlinks[static_cast<size_t>(index)]; }
    int mergeSize() const { return static_cast<int>(m_layout.merges.size()); }
    const CellRange &merge(int index) const { return m_layout.merges[static_cast<size_t>(index)]; }

    // Writing; false for places that the sheet doesn't have and for what it can't hold
    bool writeStr(int row, int column, const QString &text, const Format *format = nullptr);
    /// The same with a text in UTF-8.
    bool writeText(int row, int column, std::string_view text, const Format *format = nullptr);
    bool writeNum(int row, int column, double value, const Format *format = nullptr);
    bool writeBool(int row, int column, bool value, const Format *format = nullptr);
    /// `text` with or without the equals sign. The result is worked out by the program that opens the file.
    bool writeFormula(int row, int column, const QString &text, const Format *format = nullptr);
    /// A place without a cell gets an empty one.
    bool setCellFormat(int row, int column, const Format *format);
    void clear(int rowFirst, int rowLast, int columnFirst, int columnLast);
    void delHyperlink(int index);
    /// False when the sheet has as many as it can hold, or the target is empty or too long.
    bool addHyperlink(const QString &target, int rowFirst, int rowLast, int columnFirst, int columnLast);
    bool setCol(int column, double width, bool hidden);
    bool setRow(int row, double height, bool hidden);
    /// False for a range outside the sheet or one that overlaps another merged range.
    bool setMerge(const CellRange &range);
    void delMerge(int index);

    // For those who read and write whole sheets
    const CellGrid &cells() const { return m_cells; }
    CellGrid &cells() { return m_cells; }
    const SheetLayout &layout() const { return m_layout; }
    SheetLayout &layout() { return m_layout; }
    /// True once anything was changed by one of the functions above.
    bool isChanged() const { return m_changed; }
    void setChanged(bool changed) { m_changed = changed; }

private:
    CellRecord *cellForWriting(int row, int column, const Format *format);

    BookData *m_book;
    QString m_name;
    CellGrid m_cells;
    SheetLayout m_layout;
    bool m_changed = false;
};

} // namespace spreadsheet
