#include "spreadsheet/xlsx/sheetcells.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/cellerror.h"
#include "spreadsheet/cellreference.h"
#include "spreadsheet/xlsx/isodate.h"
#include "spreadsheet/xlsx/plaincell.h"
#include "spreadsheet/xlsx/xlsxsource.h"
#include "spreadsheet/xlsx/xmlparser.h"
#include "spreadsheet/xlsx/xmltext.h"

#include <charconv>

namespace spreadsheet {
namespace {

constexpr int formulaLimit = 16 << 20;

std::string_view trimmed(std::string_view text)
{
    const auto isSpace = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// All of the text must be a number.
template<typename Number>
bool parseWhole(std::string_view text, Number *number)
{
    const char *end = text.data() + text.size();
    const auto [behind, error] = std::from_chars(text.data(), end, *number);
    return error == std::errc() && behind == end;
}

bool parseFinite(std::string_view text, double *number)
{
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
        text.remove_prefix(1);
    }
    return parseWhole(text, number) && qIsFinite(*number);
}

/// Whether the attribute of a row says something even when the row has no cells.
bool isOutline(std::string_view name, std::string_view value)
{
    const bool isNumber = name == "outlineLevel";
    const bool isFlag = name == "collapsed" || name == "thickTop" || name == "thickBot" || name == "ph";
    return (isNumber && value != "0") || (isFlag && XmlAttributes::isTrue(value));
}

} // namespace

SheetCells::SheetCells(const XlsxSource &source, BookData &book, CellGrid *grid)
    : m_source(source)
    , m_book(book)
    , m_grid(grid)
{
}

bool SheetCells::fail(const QString &error)
{
    m_error = error;
    return false;
}

quint32 SheetCells::formatOf(std::string_view index) const
{
    quint32 format = 0;
    return parseWhole(index, &format) && format < m_book.loadedFormats ? format : 0;
}

// Rows

/// `<row>`: without an `r` it is the row behind the one before. A height counts as a person's own only with
/// `customHeight`, a format only with `customFormat`.
bool SheetCells::beginRow(const XmlAttributes &attributes)
{
    ++m_row;
    m_column = -1;
    m_rowOwn = GridRow();
    m_attributes.resize(0);
    m_hasOutline = false;
    bool hasOwnHeight = false, hasNumber = true;
    for (const char **item = attributes.list(); *item; item += 2) {
        const std::string_view name = item[0];
        if (name == "r") {
            hasNumber = parseWhole(trimmed(item[1]), &m_row);
            --m_row;
        } else if (name == "customHeight") {
            hasOwnHeight = XmlAttributes::isTrue(item[1]);
        } else {
            takeRowAttribute(item[0], item[1]);
        }
    }
    if (!hasNumber || m_row < 0 || m_row >= maxRows(FileKind::Xlsx)) {
        return fail(QStringLiteral("The sheet has a row that lies outside of any sheet"));
    }
    m_rowOwn.hasFittedHeight = !hasOwnHeight && m_rowOwn.height >= 0;
    m_rowOwn.format = m_rowOwn.hasFormat ? m_rowOwn.format : 0;
    // The same attributes stand in row after row.
    const bool sameAsBefore = m_place && m_place->otherAttributes == m_attributes;
    m_rowOwn.otherAttributes = sameAsBefore ? m_place->otherAttributes
                                            : QByteArray(m_attributes.constData(), m_attributes.size());
    m_usualCells = m_place ? m_place->cells.size() : 0;
    m_placeRow = -1;
    m_isOwnPlaced = false;
    if (isRowKept()) {
        placeFor(m_row);
    }
    return true;
}

/// Whether the row says anything that counts without cells.
bool SheetCells::isRowKept() const
{
    return m_keepsAllRows || m_hasOutline || m_rowOwn.hidden || m_rowOwn.height >= 0 || m_rowOwn.hasFormat;
}

void SheetCells::takeRowAttribute(const char *name, const char *value)
{
    const std::string_view attribute = name;
    if (attribute == "s") {
        m_rowOwn.format = formatOf(value);
    } else if (attribute == "customFormat") {
        m_rowOwn.hasFormat = XmlAttributes::isTrue(value);
    } else if (attribute == "ht") {
        double height = -1;
        m_rowOwn.height = parseFinite(value, &height) ? static_cast<float>(qBound(-1.0, height, 409.5)) : -1;
    } else if (attribute == "hidden") {
        m_rowOwn.hidden = XmlAttributes::isTrue(value);
    } else if (attribute != "spans") {
        appendXmlAttribute(attribute, value, &m_attributes);
        m_hasOutline = m_hasOutline || isOutline(attribute, value);
    }
}

GridRow &SheetCells::placeFor(int row)
{
    if (row == m_placeRow) {
        return *m_place;
    }
    m_place = &m_grid->rowFor(row);
    m_placeRow = row;
    if (row == m_row && !m_isOwnPlaced) {
        m_isOwnPlaced = true;
        m_rowOwn.cells = std::move(m_place->cells);
        *m_place = std::move(m_rowOwn);
    }
    if (m_place->cells.empty()) {
        m_place->cells.reserve(m_usualCells);
    }
    return *m_place;
}

// Cells

/// The types of `t` (ST_CellType); `str` and `inlineStr`, and what the format doesn't know, are text.
SheetCells::Kind SheetCells::kindOf(std::string_view type)
{
    const bool isLetter = type.size() == 1;
    switch (isLetter ? type[0] : '\0') {
    case 'n':
        return Kind::Number;
    case 's':
        return Kind::Shared;
    case 'b':
        return Kind::Boolean;
    case 'e':
        return Kind::Error;
    case 'd':
        return Kind::Date;
    default:
        return Kind::Text;
    }
}

/// A `<c>` without an `r` stands behind the cell before it.
bool SheetCells::takePlace(bool hasReference, std::string_view reference)
{
    if (!hasReference) {
        m_cellRow = m_row;
        ++m_column;
        return m_column < maxColumns(FileKind::Xlsx) || fail(QStringLiteral("The sheet has too many cells in a row"));
    }
    return parseCellReference(reference, &m_cellRow, &m_column)
           || fail(QStringLiteral("The sheet has a cell at '%1', which is no place in a sheet")
                       .arg(QString::fromUtf8(reference.data(), static_cast<int>(qMin<size_t>(reference.size(), 40)))));
}

/// `<c>` with place `r`, format `s` and type `t`, which is a number when it isn't given. Other attributes are kept.
bool SheetCells::beginCell(const XmlAttributes &attributes)
{
    const char *reference = nullptr;
    m_kind = Kind::Number;
    m_format = 0;
    m_hasValue = m_hasInline = m_hasFormula = false;
    m_value.clear();
    m_inline.clear();
    m_cellAttributes.clear();
    for (const char **item = attributes.list(); *item; item += 2) {
        switch (item[0][1] == '\0' ? item[0][0] : '\0') {
        case 'r':
            reference = item[1];
            break;
        case 's':
            m_format = formatOf(item[1]);
            break;
        case 't':
            m_kind = kindOf(item[1]);
            break;
        default:
            appendXmlAttribute(item[0], item[1], &m_cellAttributes);
        }
    }
    return takePlace(reference, reference ? std::string_view(reference) : std::string_view());
}

bool SheetCells::addCell(const PlainCell &cell)
{
    m_kind = cell.type.empty() ? Kind::Number : kindOf(cell.type);
    m_kind = cell.isInline ? Kind::Text : m_kind;
    m_format = cell.format.empty() ? 0 : formatOf(cell.format);
    m_hasValue = cell.hasValue;
    m_hasInline = m_hasFormula = false;
    m_cellAttributes.clear();
    return takePlace(cell.hasReference, cell.reference) && finishCell(cell.value);
}

bool SheetCells::appendValue(std::string_view piece)
{
    m_value.append(piece);
    return m_value.size() <= RichText::longest || fail(RichText::tooLong());
}

void SheetCells::beginFormula(const XmlAttributes &attributes)
{
    m_hasFormula = true;
    m_formula = QByteArrayLiteral("<f");
    for (const char **item = attributes.list(); *item; item += 2) {
        appendXmlAttribute(item[0], item[1], &m_formula);
    }
    m_formula.append('>');
}

bool SheetCells::appendFormula(std::string_view piece)
{
    appendXmlText(piece, &m_formula);
    return m_formula.size() <= formulaLimit || fail(RichText::tooLong());
}

void SheetCells::endFormula()
{
    m_formula.append("</f>");
}

bool SheetCells::isCellUsed() const
{
    return m_format != 0 || m_hasFormula || !m_value.empty() || m_hasInline;
}

bool SheetCells::finishCell(std::string_view value)
{
    CellRecord cell;
    cell.format = m_format;
    cell.type = CellType::Blank;
    if (!takeValue(value, &cell)) {
        return false;
    }
    const bool isUsed = cell.type != CellType::Blank || cell.format != 0 || m_hasFormula;
    // An empty one still takes the place of one that stood there before.
    if (isUsed || m_grid->cell(m_cellRow, m_column)) {
        put(cell);
    }
    return true;
}

void SheetCells::put(const CellRecord &cell)
{
    std::vector<CellRecord> &cells = placeFor(m_cellRow).cells;
    CellRecord *place;
    if (!cells.empty() && cells.back().column < m_column) {
        cells.emplace_back();
        place = &cells.back();
    } else {
        place = &m_grid->cellFor(m_cellRow, m_column);
    }
    *place = cell;
    place->column = static_cast<quint16>(m_column);
    if (m_hasFormula) {
        m_grid->setFormula(m_cellRow, m_column, {QByteArray(), m_formula});
    }
    CellExtras extras{m_cellAttributes, m_hasInline ? m_inline.stored() : QByteArray()};
    if (!extras.isEmpty()) {
        m_grid->setExtras(m_cellRow, m_column, std::move(extras));
    }
}

// Values

/// The text of `<v>` as its type has it: the index of a shared text, 1 or 0, the name of an error, a date of ISO 8601,
/// a number; a cell with an `<is>` has its text there.
bool SheetCells::takeValue(std::string_view whole, CellRecord *cell)
{
    if (m_hasInline) {
        takeText(m_inline.plain(), cell);
        return true;
    }
    if (m_kind == Kind::Text) {
        if (m_hasValue) {
            takeEscapedText(whole, cell);
        }
        return true;
    }
    const std::string_view value = trimmed(whole);
    if (value.empty()) {
        return true;
    }
    bool isTaken = false;
    switch (m_kind) {
    case Kind::Shared:
        return takeShared(value, cell);
    case Kind::Error:
        cell->type = CellType::Error;
        cell->number = errorCode(value);
        return true;
    case Kind::Boolean:
        isTaken = value == "1" || value == "0" || value == "true" || value == "false";
        cell->type = CellType::Boolean;
        cell->number = XmlAttributes::isTrue(value) ? 1.0 : 0.0;
        break;
    case Kind::Date:
        isTaken = parseIsoDate(value, m_book.uses1904, &cell->number);
        cell->type = CellType::StrictDate;
        break;
    default:
        isTaken = parseFinite(value, &cell->number);
        cell->type = CellType::Number;
    }
    if (!isTaken) {
        takeText(whole, cell); // rather than to lose it
    }
    return true;
}

bool SheetCells::takeShared(std::string_view value, CellRecord *cell)
{
    quint32 index = 0;
    if (!parseWhole(value, &index) || index >= m_source.loadedTexts) {
        return fail(QStringLiteral("The cell %1 refers to a text that the workbook doesn't have")
                        .arg(QString::fromLatin1(cellReference(m_cellRow, m_column))));
    }
    ++m_textUses;
    cell->setTextId(m_source.firstText + index);
    return true;
}

/// Characters that XML can't hold are written as `_xHHHH_` (ST_Xstring).
void SheetCells::takeEscapedText(std::string_view text, CellRecord *cell)
{
    if (text.find("_x") == std::string_view::npos) {
        return takeText(text, cell);
    }
    std::string plain;
    appendUnescaped(text, &plain);
    takeText(plain, cell);
}

void SheetCells::takeText(std::string_view text, CellRecord *cell)
{
    cell->setTextId(m_book.texts.append(text));
}

} // namespace spreadsheet
