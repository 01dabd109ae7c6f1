#pragma once

#include "spreadsheet/cellrecord.h"

#include <QByteArray>
#include <map>
#include <unordered_map>
#include <vector>

namespace spreadsheet {

/// A formula: one that was written here has a text, one that was read has what its file holds for it.
struct FormulaRecord
{
    QByteArray text;   ///< UTF-8, without the equals sign
    QByteArray stored; ///< in the file's own form, see the reader of the kind
};

/// What few cells have beside value and format, in the file's own form; kept for writing until the cell is written to.
struct CellExtras
{
    QByteArray attributes;
    QByteArray richText; ///< the text with its runs, where the cell holds it itself

    bool isEmpty() const { return attributes.isEmpty() && richText.isEmpty(); }
};

/// One row of a sheet: its used cells by column, and what the row itself has.
struct GridRow
{
    std::vector<CellRecord> cells;
    float height = -1;            ///< points; below 0 for the default
    bool hasFittedHeight = false; ///< the height isn't the user's, some program fitted it to the cells
    bool hidden = false;
    bool hasFormat = false;
    quint32 format = 0;
    QByteArray otherAttributes; ///< in the file's own form, kept for writing

    /// To be called when cells change: what was fitted to them is worked out anew by the program that shows them.
    void dropFittedHeight()
    {
        height = hasFittedHeight ? -1 : height;
        hasFittedHeight = false;
    }
};

/// The used cells of a sheet, row by row; empty places cost nothing. Rows and columns are 0-based.
class CellGrid
{
public:
    using Rows = std::map<int, GridRow>;
    using const_iterator = Rows::const_iterator;

    const_iterator begin() const { return m_rows.begin(); }
    const_iterator end() const { return m_rows.end(); }
    /// Null where the row has neither cells nor anything of its own.
    const GridRow *row(int row) const;
    /// Made when it isn't there; cheap for the row last asked for and for one behind all others.
    GridRow &rowFor(int row);
    /// Null for an empty place; valid until the row changes.
    const CellRecord *cell(int row, int column) const;
    /// The cell there, made when there is none, which drops its formula and extras. It counts as used from now on.
    CellRecord &cellFor(int row, int column);
    /// Empties the cells from the first to the last, both included.
    void clear(int rowFirst, int rowLast, int columnFirst, int columnLast);
    void clearAll();

    const FormulaRecord *formula(int row, int column) const;
    /// The cell, which exists, gets the formula and keeps its value as the last result.
    void setFormula(int row, int column, FormulaRecord formula);
    bool hasFormulas() const { return !m_formulas.empty(); }
    /// Null for nearly all cells.
    const CellExtras *extras(int row, int column) const;
    /// Of a cell that exists.
    void setExtras(int row, int column, CellExtras extras);

    // The used area: cells with a value or a format. Last ones are one behind; all 0 when nothing is used.
    int firstRow() const { return area().firstRow; }
    int lastRow() const { return area().lastRow; }
    int firstColumn() const { return area().firstColumn; }
    int lastColumn() const { return area().lastColumn; }

private:
    struct Area
    {
        int firstRow = 0, lastRow = 0, firstColumn = 0, lastColumn = 0;
    };
    const Area &area() const;
    static quint64 key(int row, int column) { return (static_cast<quint64>(row) << 16) | static_cast<quint16>(column); }

    Rows m_rows;
    Rows::iterator m_last = m_rows.end(); // the row last asked for
    std::unordered_map<quint64, FormulaRecord> m_formulas;
    std::unordered_map<quint64, CellExtras> m_extras;
    mutable Area m_area;
    mutable bool m_areaKnown = true;
};

} // namespace spreadsheet
