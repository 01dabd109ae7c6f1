#pragma once

#include "spreadsheet/cellgrid.h"
#include "spreadsheet/xlsx/write/formulawriter.h"
#include "spreadsheet/xlsx/write/xmlbuffer.h"

#include <QByteArray>
#include <QSet>
#include <array>
#include <string>

namespace spreadsheet {

class DeflatedPart;
class Sheet;
class SharedTextsEdit;
class StylesWriter;
struct BookData;

/// What the cells of written sheets share.
struct CellContext
{
    const BookData &book;
    SharedTextsEdit &texts;
    StylesWriter &styles;
    FormulaWriter &formulas;
    int badFormulas = 0; ///< those written as texts, since they weren't well-formed
    bool hasFormulas = false;
};

/// Writes the rows of a sheet as its sheetData element.
class RowsWriter
{
public:
    /// `prefix` is put before the names of elements.
    RowsWriter(CellContext &context, const CellGrid &grid, const QByteArray &prefix, DeflatedPart &out);

    void write();

private:
    struct Reference
    {
        std::array<char, 4> letters;
        unsigned char size = 0;
    };

    void findMasters();
    void writeRowStart(int row, const GridRow &own);
    void writeCell(int row, const CellRecord &cell);
    void writePlainCell(const CellRecord &cell);
    void writeFormulaCell(int row, const CellRecord &cell);
    void writeNewFormula(const CellRecord &cell, std::string_view text);
    void writeStoredFormula(const CellRecord &cell, const QByteArray &stored);
    void writeValue(const CellRecord &cell);
    void writeDate(const CellRecord &cell);
    /// Writes the start tag up to the end of `type`, which begins with the quote that closes the attribute before.
    void beginCell(const CellRecord &cell, std::string_view type);
    void writeText(const CellRecord &cell);
    void writeStored(std::string_view elements);
    void appendNumber(double number);
    bool hasMaster(const QByteArray &stored) const;
    const Reference &letters(int column);

    CellContext &m_context;
    const CellGrid &m_grid;
    const std::string m_prefix;
    const std::string m_cellBegin, m_valueBegin, m_valueEnd, m_cellEnd;
    XmlBuffer<DeflatedPart> m_buffer;
    std::string m_text;                   // of one cell
    std::string m_rowNumber;              // of the row that is written
    const CellExtras *m_extras = nullptr; // of the cell that is written
    std::vector<Reference> m_letters;
    QSet<QByteArray> m_masters; // numbers of the shared formulas that still have the cell which states them
};

} // namespace spreadsheet
