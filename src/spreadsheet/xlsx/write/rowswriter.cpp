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

constexpr size_t pieceSize = 32 << 10;
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

void append(std::string &out, const QByteArray &bytes)
{
    out.append(bytes.constData(), static_cast<size_t>(bytes.size()));
}

} // namespace

RowsWriter::RowsWriter(CellContext &context, const CellGrid &grid, const QByteArray &prefix, DeflatedPart &out)
    : m_context(context)
    , m_grid(grid)
    , m_out(out)
    , m_prefix(prefix.toStdString())
    , m_cellBegin('<' + m_prefix + "c r=\"")
    , m_valueBegin("><" + m_prefix + "v>")
    , m_valueEnd("</" + m_prefix + "v></" + m_prefix + "c>")
    , m_cellEnd("</" + m_prefix + "c>")
{
}

void RowsWriter::write()
{
    findMasters();
    m_buffer = '<' + m_prefix + "sheetData>";
    for (const auto &[row, own] : m_grid) {
        const bool isPlain = own.height < 0 && !own.hidden && !own.hasFormat && own.otherAttributes.isEmpty();
        if (own.cells.empty() && isPlain) {
            continue;
        }
        writeRowStart(row, own);
        for (const CellRecord &cell : own.cells) {
            writeCell(row, cell);
            if (m_buffer.size() >= pieceSize) {
                m_out.write(m_buffer);
                m_buffer.clear();
            }
        }
        m_buffer += "</" + m_prefix + "row>";
    }
    m_buffer += "</" + m_prefix + "sheetData>";
    m_out.write(m_buffer);
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
    m_buffer += '<' + m_prefix + "row r=\"";
    m_buffer += m_rowNumber;
    m_buffer += '"';
    if (own.hasFormat) {
        m_buffer += " s=\"" + std::to_string(m_context.styles.number(own.format)) + "\" customFormat=\"1\"";
    }
    if (own.height >= 0) {
        m_buffer += " ht=\"";
        appendNumber(static_cast<double>(own.height));
        m_buffer += "\" customHeight=\"1\"";
    }
    if (own.hidden) {
        m_buffer += " hidden=\"1\"";
    }
    append(m_buffer, own.otherAttributes);
    m_buffer += '>';
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
    char digits[32];
    const bool isInteger = std::fabs(number) < greatestExactInteger && number == std::floor(number)
                           && !std::signbit(number);
    const auto end = isInteger ? std::to_chars(digits, digits + sizeof digits, static_cast<long long>(number))
                               : std::to_chars(digits, digits + sizeof digits, number);
    m_buffer.append(digits, static_cast<size_t>(end.ptr - digits));
}

void RowsWriter::beginCell(const CellRecord &cell, const char *type)
{
    const Reference &place = letters(cell.column);
    m_buffer += m_cellBegin;
    m_buffer.append(place.letters.data(), place.size);
    m_buffer += m_rowNumber;
    m_buffer += '"';
    if (cell.format != 0) {
        char digits[16];
        const auto end = std::to_chars(digits, digits + sizeof digits, m_context.styles.number(cell.format));
        m_buffer += " s=\"";
        m_buffer.append(digits, static_cast<size_t>(end.ptr - digits));
        m_buffer += '"';
    }
    m_buffer += type;
}

void RowsWriter::writeCell(int row, const CellRecord &cell)
{
    if (cell.isFormula) {
        writeFormulaCell(row, cell);
        return;
    }
    switch (cell.type) {
    case CellType::Empty:
    case CellType::Blank:
        beginCell(cell, "/>");
        return;
    case CellType::String:
        beginCell(cell, " t=\"s\"");
        m_buffer += m_valueBegin;
        appendNumber(m_context.texts.use(cell.textId()));
        m_buffer += m_valueEnd;
        return;
    case CellType::StrictDate:
        writeDate(cell);
        return;
    default:
        writeValue(cell);
    }
}

void RowsWriter::writeValue(const CellRecord &cell)
{
    const bool isBoolean = cell.type == CellType::Boolean;
    const bool isError = cell.type == CellType::Error;
    beginCell(cell, isBoolean ? " t=\"b\"" : isError ? " t=\"e\"" : "");
    m_buffer += m_valueBegin;
    if (isError) {
        m_buffer += errorText(static_cast<int>(cell.number));
    } else {
        appendNumber(cell.number);
    }
    m_buffer += m_valueEnd;
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
    beginCell(cell, " t=\"d\"");
    m_buffer += m_valueBegin;
    char text[32];
    const int size = std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03d", parts.year, parts.month,
        parts.day, parts.hour, parts.minute, parts.second, parts.millisecond);
    const bool isDay = cell.number == std::floor(cell.number);
    m_buffer.append(text, isDay                    ? 10
                          : parts.millisecond == 0 ? static_cast<size_t>(size) - 4
                                                   : static_cast<size_t>(size));
    m_buffer += m_valueEnd;
}

void RowsWriter::writeFormulaCell(int row, const CellRecord &cell)
{
    const FormulaRecord *formula = m_grid.formula(row, cell.column);
    if (formula && !formula->text.isEmpty()) {
        writeNewFormula(cell, {formula->text.constData(), static_cast<size_t>(formula->text.size())});
    } else if (formula && formula->stored.startsWith("<f") && hasMaster(formula->stored)) {
        writeStoredFormula(cell, formula->stored);
    } else {
        CellRecord result = cell;
        result.isFormula = false;
        writeCell(row, result);
    }
}

/// Without a result, which the program that opens the file works out.
void RowsWriter::writeNewFormula(const CellRecord &cell, std::string_view text)
{
    if (!m_context.formulas.convert(text)) {
        ++m_context.badFormulas;
        beginCell(cell, " t=\"inlineStr\"");
        m_buffer += "><" + m_prefix + "is><" + m_prefix + "t>=";
        appendCellText(m_buffer, text);
        m_buffer += "</" + m_prefix + "t></" + m_prefix + "is>" + m_cellEnd;
        return;
    }
    m_context.hasFormulas = true;
    beginCell(cell, "><");
    m_buffer += m_prefix + "f>";
    appendCellText(m_buffer, m_context.formulas.result());
    m_buffer += "</" + m_prefix + "f>" + m_cellEnd;
}

/// As it was read, with the result of then.
void RowsWriter::writeStoredFormula(const CellRecord &cell, const QByteArray &stored)
{
    m_context.hasFormulas = true;
    const bool isText = cell.type == CellType::String;
    beginCell(cell, isText                           ? " t=\"str\""
                    : cell.type == CellType::Boolean ? " t=\"b\""
                    : cell.type == CellType::Error   ? " t=\"e\""
                                                     : "");
    m_buffer += "><" + m_prefix;
    if (m_prefix.empty()) {
        append(m_buffer, stored.mid(1));
    } else {
        const int end = stored.lastIndexOf("</f>");
        append(m_buffer, stored.mid(1, end - 1) + "</" + m_prefix.c_str() + "f>");
    }
    if (cell.type == CellType::Empty || cell.type == CellType::Blank) {
        m_buffer += m_cellEnd;
        return;
    }
    m_buffer.append(m_valueBegin, 1, std::string::npos);
    if (isText) {
        appendCellText(m_buffer, m_context.book.texts.text(cell.textId()));
    } else if (cell.type == CellType::Error) {
        m_buffer += errorText(static_cast<int>(cell.number));
    } else {
        appendNumber(cell.number);
    }
    m_buffer += m_valueEnd;
}

} // namespace spreadsheet
