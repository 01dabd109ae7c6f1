#include "spreadsheet/xlsx/write/rowswriter.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/cellerror.h"
#include "spreadsheet/cellreference.h"
#include "spreadsheet/datesystem.h"
#include "spreadsheet/xlsx/write/deflatedpart.h"
#include "spreadsheet/xlsx/write/sharedtextsedit.h"
#include "spreadsheet/xlsx/write/styleswriter.h"
#include "spreadsheet/xlsx/write/textescape.h"

#include <charconv>
#include <cmath>

namespace spreadsheet {
namespace {

constexpr double greatestExactInteger = 1e15;

/// Value of an attribute in the start tag of a formula as it was read; empty when there is none.
QByteArray storedAttribute(const QByteArray &stored, const char *name)
{
    const int tagEnd = stored.indexOf('>');
    const QByteArray wanted = QByteArray(" ") + name + "=\"";
    const int found = stored.indexOf(wanted);
    if (found < 0 || found > tagEnd) {
        return {};
    }
    const int start = found + wanted.size();
    return stored.mid(start, stored.indexOf('"', start) - start);
}

bool isElement(const QByteArray &stored)
{
    return stored.startsWith("<f") && stored.endsWith("</f>");
}

std::string_view view(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

} // namespace

RowsWriter::RowsWriter(CellContext &context, const CellGrid &grid, const QByteArray &prefix, DeflatedPart &out)
    : m_context(context)
    , m_grid(grid)
    , m_prefix(prefix.toStdString())
    , m_cellBegin('<' + m_prefix + "c r=\"")
    , m_valueBegin("><" + m_prefix + "v>")
    , m_valueEnd("</" + m_prefix + "v></" + m_prefix + "c>")
    , m_cellEnd("</" + m_prefix + "c>")
    , m_buffer(out)
{
}

void RowsWriter::write()
{
    findMasters();
    m_buffer << "<" << m_prefix << "sheetData>";
    for (const auto &[row, own] : m_grid) {
        const bool isPlain = own.height < 0 && !own.hidden && !own.hasFormat && own.otherAttributes.isEmpty();
        if (own.cells.empty() && isPlain) {
            continue;
        }
        writeRowStart(row, own);
        for (const CellRecord &cell : own.cells) {
            writeCell(row, cell);
        }
        m_buffer << "</" << m_prefix << "row>";
    }
    m_buffer << "</" << m_prefix << "sheetData>";
    m_buffer.flush();
}

/// A formula that several cells share is stated by one of them.
void RowsWriter::findMasters()
{
    if (!m_grid.hasFormulas()) {
        return;
    }
    for (const auto &[row, own] : m_grid) {
        for (const CellRecord &cell : own.cells) {
            const FormulaRecord *formula = cell.isFormula ? m_grid.formula(row, cell.column) : nullptr;
            if (formula && formula->text.isEmpty() && storedAttribute(formula->stored, "t") == "shared"
                && !storedAttribute(formula->stored, "ref").isEmpty()) {
                m_masters.insert(storedAttribute(formula->stored, "si"));
            }
        }
    }
}

bool RowsWriter::hasMaster(const QByteArray &stored) const
{
    return storedAttribute(stored, "t") != "shared" || m_masters.contains(storedAttribute(stored, "si"));
}

void RowsWriter::writeRowStart(int row, const GridRow &own)
{
    m_rowNumber = std::to_string(row + 1);
    m_buffer << "<" << m_prefix << "row r=\"" << m_rowNumber << "\"";
    if (own.hasFormat) {
        m_buffer << " s=\"";
        m_buffer.appendNumber(m_context.styles.number(own.format));
        m_buffer << "\" customFormat=\"1\"";
    }
    if (own.height >= 0) {
        m_buffer << " ht=\"";
        m_buffer.appendNumber(own.height);
        m_buffer << (own.hasFittedHeight ? "\"" : "\" customHeight=\"1\"");
    }
    m_buffer << (own.hidden ? " hidden=\"1\"" : "") << view(own.otherAttributes) << ">";
}

const RowsWriter::Reference &RowsWriter::letters(int column)
{
    while (m_letters.size() <= static_cast<size_t>(column)) {
        const QByteArray text = columnLetters(static_cast<int>(m_letters.size()));
        Reference reference{};
        std::copy(text.begin(), text.end(), reference.letters.begin());
        reference.size = static_cast<unsigned char>(text.size());
        m_letters.push_back(reference);
    }
    return m_letters[static_cast<size_t>(column)];
}

void RowsWriter::appendNumber(double number)
{
    const bool isInteger = std::fabs(number) < greatestExactInteger && !std::signbit(number)
                           && number == static_cast<double>(static_cast<qint64>(number));
    if (isInteger) {
        m_buffer.appendNumber(static_cast<qint64>(number));
    } else {
        m_buffer.appendNumber(number);
    }
}

void RowsWriter::beginCell(const CellRecord &cell, std::string_view type)
{
    const Reference &place = letters(cell.column);
    m_buffer << m_cellBegin << std::string_view(place.letters.data(), place.size) << m_rowNumber;
    const quint32 format = cell.format == 0 ? 0 : m_context.styles.number(cell.format);
    if (format != 0) {
        m_buffer << "\" s=\"";
        m_buffer.appendNumber(format);
    }
    if (m_extras && !m_extras->attributes.isEmpty()) {
        m_buffer << "\"" << view(m_extras->attributes);
        type.remove_prefix(1);
    }
    m_buffer << type;
}

void RowsWriter::writeCell(int row, const CellRecord &cell)
{
    m_extras = m_grid.extras(row, cell.column);
    if (cell.isFormula) {
        writeFormulaCell(row, cell);
    } else {
        writePlainCell(cell);
    }
}

void RowsWriter::writePlainCell(const CellRecord &cell)
{
    switch (cell.type) {
    case CellType::Empty:
    case CellType::Blank:
        beginCell(cell, "\"/>");
        return;
    case CellType::String:
        writeText(cell);
        return;
    case CellType::StrictDate:
        writeDate(cell);
        return;
    default:
        writeValue(cell);
    }
}

void RowsWriter::writeText(const CellRecord &cell)
{
    if (m_extras && !m_extras->richText.isEmpty()) {
        beginCell(cell, "\" t=\"inlineStr\"");
        m_buffer << "><" << m_prefix << "is>";
        writeStored(view(m_extras->richText));
        m_buffer << "</" << m_prefix << "is>" << m_cellEnd;
        return;
    }
    beginCell(cell, "\" t=\"s\"");
    m_buffer << m_valueBegin;
    m_buffer.appendNumber(m_context.texts.use(cell.textId()));
    m_buffer << m_valueEnd;
}

/// Elements whose names come without the prefix.
void RowsWriter::writeStored(std::string_view elements)
{
    while (!elements.empty()) {
        const bool isEnd = elements.substr(0, 2) == "</";
        const size_t size = std::min(elements.find('<', 1), elements.size());
        const size_t nameBegin = isEnd ? 2 : elements.front() == '<' ? 1 : 0;
        m_buffer << elements.substr(0, nameBegin) << (nameBegin > 0 ? std::string_view(m_prefix) : std::string_view())
                 << elements.substr(nameBegin, size - nameBegin);
        elements.remove_prefix(size);
    }
}

void RowsWriter::writeValue(const CellRecord &cell)
{
    const bool isBoolean = cell.type == CellType::Boolean;
    const bool isError = cell.type == CellType::Error;
    beginCell(cell, isBoolean ? "\" t=\"b\"" : isError ? "\" t=\"e\"" : "\"");
    m_buffer << m_valueBegin;
    if (isError) {
        m_buffer << errorText(static_cast<int>(cell.number));
    } else {
        appendNumber(cell.number);
    }
    m_buffer << m_valueEnd;
}

/// In the form that it was read in, unless its format shows numbers as dates: more programs know these.
void RowsWriter::writeDate(const CellRecord &cell)
{
    DateParts parts;
    if (m_context.book.isDateFormat(cell.format) || cell.number < 1
        || !unpackDate(cell.number, m_context.book.uses1904, &parts)) {
        writeValue(cell);
        return;
    }
    beginCell(cell, "\" t=\"d\"");
    char text[32];
    const int size = std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03d", parts.year, parts.month,
        parts.day, parts.hour, parts.minute, parts.second, parts.millisecond);
    const bool isDay = cell.number == std::floor(cell.number);
    const size_t used = isDay ? 10 : parts.millisecond == 0 ? static_cast<size_t>(size) - 4 : static_cast<size_t>(size);
    m_buffer << m_valueBegin << std::string_view(text, used) << m_valueEnd;
}

void RowsWriter::writeFormulaCell(int row, const CellRecord &cell)
{
    const FormulaRecord *formula = m_grid.formula(row, cell.column);
    if (formula && !formula->text.isEmpty()) {
        writeNewFormula(cell, {formula->text.constData(), static_cast<size_t>(formula->text.size())});
    } else if (formula && isElement(formula->stored) && hasMaster(formula->stored)) {
        writeStoredFormula(cell, formula->stored);
    } else {
        m_extras = nullptr; // they may speak of the formula
        writePlainCell(cell);
    }
}

/// Without a result, which the program that opens the file works out.
void RowsWriter::writeNewFormula(const CellRecord &cell, std::string_view text)
{
    m_text.clear();
    if (!m_context.formulas.convert(text)) {
        ++m_context.badFormulas;
        appendCellText(m_text, text);
        beginCell(cell, "\" t=\"inlineStr\"");
        m_buffer << "><" << m_prefix << "is><" << m_prefix << "t>=" << m_text << "</" << m_prefix << "t></" << m_prefix
                 << "is>" << m_cellEnd;
        return;
    }
    m_context.hasFormulas = true;
    appendCellText(m_text, m_context.formulas.result());
    beginCell(cell, "\"");
    m_buffer << "><" << m_prefix << "f>" << m_text << "</" << m_prefix << "f>" << m_cellEnd;
}

/// As it was read, with the result of then.
void RowsWriter::writeStoredFormula(const CellRecord &cell, const QByteArray &stored)
{
    m_context.hasFormulas = true;
    const CellType type = cell.type;
    beginCell(cell, type == CellType::String    ? "\" t=\"str\""
                    : type == CellType::Boolean ? "\" t=\"b\""
                    : type == CellType::Error   ? "\" t=\"e\""
                                                : "\"");
    // The element's name comes without the prefix.
    const std::string_view formula = view(stored).substr(1, static_cast<size_t>(stored.lastIndexOf("</f>")) - 1);
    m_buffer << "><" << m_prefix << formula << "</" << m_prefix << "f>";
    if (type == CellType::Empty || type == CellType::Blank) {
        m_buffer << m_cellEnd;
        return;
    }
    m_buffer << std::string_view(m_valueBegin).substr(1);
    if (type == CellType::String) {
        m_text.clear();
        appendCellText(m_text, m_context.book.texts.text(cell.textId()));
        m_buffer << m_text;
    } else if (type == CellType::Error) {
        m_buffer << errorText(static_cast<int>(cell.number));
    } else {
        appendNumber(cell.number);
    }
    m_buffer << m_valueEnd;
}

} // namespace spreadsheet
