#pragma once

#include "spreadsheet/cellgrid.h"
#include "spreadsheet/xlsx/celltext.h"

#include <QByteArray>
#include <string>

namespace spreadsheet {

class XmlAttributes;
struct BookData;
struct PlainCell;
struct XlsxSource;

/// Puts rows and cells of a sheet part into a grid, as their elements begin and end. Functions that give false leave a
/// text in error().
class SheetCells
{
public:
    SheetCells(const XlsxSource &source, BookData &book, CellGrid *grid);

    /// Rows that have nothing of their own are kept too, since those that aren't there are hidden.
    void keepAllRows() { m_keepsAllRows = true; }
    bool beginRow(const XmlAttributes &attributes);
    bool beginCell(const XmlAttributes &attributes);
    void beginValue() { m_hasValue = true; }
    bool appendValue(std::string_view piece);
    void beginFormula(const XmlAttributes &attributes);
    bool appendFormula(std::string_view piece);
    void endFormula();
    void beginInline() { m_hasInline = true; }
    /// What stands in the cell's own text is to be handed to it.
    CellText &inlineText() { return m_inline; }
    bool endCell() { return finishCell(m_value); }
    /// A whole cell at once.
    bool addCell(const PlainCell &cell);
    /// Whether what stands in the cell makes it a used one; to be asked in place of endCell().
    bool isCellUsed() const;

    /// Cells that refer to shared texts, so far.
    int textUses() const { return m_textUses; }
    const QString &error() const { return m_error; }

private:
    enum class Kind : quint8 { Number, Shared, Text, Boolean, Error, Date };

    bool fail(const QString &error);
    static Kind kindOf(std::string_view type);
    bool takePlace(bool hasReference, std::string_view reference);
    bool finishCell(std::string_view value);
    void takeRowAttribute(const char *name, const char *value);
    bool isRowKept() const;
    GridRow &placeFor(int row);
    bool takeValue(std::string_view whole, CellRecord *cell);
    bool takeShared(std::string_view value, CellRecord *cell);
    void takeEscapedText(std::string_view text, CellRecord *cell);
    void takeText(std::string_view text, CellRecord *cell);
    void put(const CellRecord &cell);
    quint32 formatOf(std::string_view index) const;

    const XlsxSource &m_source;
    BookData &m_book;
    CellGrid *m_grid;
    bool m_keepsAllRows = false;
    int m_textUses = 0;
    QString m_error;

    int m_row = -1;   // of the element that is open
    GridRow m_rowOwn; // what the element says of the row itself
    bool m_isOwnPlaced = false;
    QByteArray m_attributes;    // being gathered
    bool m_hasOutline = false;  // grouped, collapsed or with a line's thickness of its own
    GridRow *m_place = nullptr; // the grid's row of number m_placeRow
    int m_placeRow = -1;
    size_t m_usualCells = 0; // so many did the row before have

    int m_cellRow = -1, m_column = -1;
    Kind m_kind = Kind::Number;
    quint32 m_format = 0;
    bool m_hasValue = false, m_hasInline = false, m_hasFormula = false;
    std::string m_value;
    CellText m_inline;
    QByteArray m_cellAttributes; // beside place, type and format
    QByteArray m_formula;
};

} // namespace spreadsheet
