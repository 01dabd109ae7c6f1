#include "outputs/sheetrowwriter.h"

#include "data/values.h"
#include "outputs/cellrows.h"
#include "outputs/storedtext.h"
#include "spreadsheet/book.h"

namespace {

// Built-in number formats
constexpr int generalNumber = 0;
constexpr int dateNumber = 14;
constexpr int timeNumber = 21;
constexpr int textNumber = 49;

constexpr int blue = 12;

} // namespace

SheetRowWriter::SheetRowWriter(
    spreadsheet::Book *book, spreadsheet::Sheet *sheet, const ExcelFormats &formats, int columnCount)
    : m_book(book)
    , m_sheet(sheet)
    , m_columns(static_cast<size_t>(columnCount))
    , m_textChanges(formats, columnCount)
    , m_maxRows(maxRows(book->kind()))
    , m_maxColumns(maxColumns(book->kind()))
    , m_general(addFormat(generalNumber))
    , m_text(addFormat(textNumber))
    , m_date(addFormat(dateNumber))
    , m_time(addFormat(timeNumber))
    , m_link(addFormat(textNumber, false, blue))
{
    for (int i = 0; i < columnCount; ++i) {
        Column &column = m_columns[static_cast<size_t>(i)];
        column.format = formats.formats.value(i, ExcelColumnFormat::Text);
        if (column.format == ExcelColumnFormat::Date) {
            column.dates = std::make_unique<DateParser>(formats.dateFormats.value(i));
        }
    }
}

SheetRowWriter::~SheetRowWriter() = default;

spreadsheet::Format *SheetRowWriter::addFormat(int numberFormat, bool bold, int color)
{
    spreadsheet::Font *font = m_book->addFont();
    font->setBold(bold);
    if (color >= 0) {
        font->setColor(color);
    }
    spreadsheet::Format *format = m_book->addFormat();
    format->setFont(font);
    format->setNumFormat(numberFormat);
    return format;
}

void SheetRowWriter::writeHeader(int sheetRow, const QStringList &names)
{
    const spreadsheet::Format *format = addFormat(textNumber, true);
    const std::vector<QByteArray> stored = toStored(names);
    for (size_t i = 0; i < stored.size(); ++i) {
        const int column = static_cast<int>(i);
        if (sheetRow < m_maxRows && column < m_maxColumns) {
            writeText(sheetRow, column, stored[i].constData(), stored[i].size(), format);
        } else {
            ++m_outside;
        }
    }
}

void SheetRowWriter::writeRow(int sheetRow, const CellRows &cells, int row)
{
    const Cell *const *const columns = cells.columns();
    const int columnCount = cells.columnCount();
    const int inside = sheetRow < m_maxRows ? qMin(columnCount, m_maxColumns) : 0;
    for (int i = 0; i < inside; ++i) {
        const Cell &cell = columns[i][row];
        if (!cell.isEmpty()) {
            writeCell(sheetRow, i, cell);
        }
    }
    for (int i = inside; i < columnCount; ++i) {
        m_outside += !columns[i][row].isEmpty();
    }
}

void SheetRowWriter::writeCell(int row, int column, const Cell &cell)
{
    switch (m_columns[static_cast<size_t>(column)].format) {
    case ExcelColumnFormat::General:
        writeText(row, column, cell.bytes(), cell.size(), nullptr);
        return;
    case ExcelColumnFormat::Formula:
        if (!writeFormula(row, column, cell)) {
            writeText(row, column, cell.bytes(), cell.size(), nullptr);
        }
        return;
    case ExcelColumnFormat::Hyperlink:
        writeHyperlink(row, column, cell);
        return;
    default:
        if (!writeTyped(row, column, cell)) {
            writeText(row, column, cell.bytes(), cell.size(), m_text);
        }
    }
}

/// False for a value that doesn't read as its column's format asks, which is text then.
bool SheetRowWriter::writeTyped(int row, int column, const Cell &cell)
{
    switch (m_columns[static_cast<size_t>(column)].format) {
    case ExcelColumnFormat::Boolean:
        return writeBoolean(row, column, cell);
    case ExcelColumnFormat::Date:
        return writeDate(row, column, cell);
    case ExcelColumnFormat::Number:
        return writeNumber(row, column, cell);
    case ExcelColumnFormat::Time:
        return writeTime(row, column, cell);
    default:
        return false;
    }
}

bool SheetRowWriter::writeBoolean(int row, int column, const Cell &cell)
{
    bool isBoolean = false;
    const bool value = parseBoolean(cell.text(), true, true, &isBoolean);
    if (!isBoolean || !m_sheet->writeBool(row, column, value)) {
        return false;
    }
    m_textChanges.noteBoolean(column, cell);
    return true;
}

bool SheetRowWriter::writeDate(int row, int column, const Cell &cell)
{
    const QDate date = m_columns[static_cast<size_t>(column)].dates->parse(cell);
    const double packed = date.isValid() ? m_book->datePack(date.year(), date.month(), date.day(), 0, 0, 0, 0) : -1.0;
    // A workbook has no dates before its first day.
    return packed >= 0.0 && m_sheet->writeNum(row, column, packed, m_date);
}

bool SheetRowWriter::writeNumber(int row, int column, const Cell &cell)
{
    bool isNumber = false;
    const double value = m_numbers.read(cell, &isNumber);
    if (!isNumber || !m_sheet->writeNum(row, column, value, m_general)) {
        return false;
    }
    m_textChanges.noteNumber(column, cell, value);
    return true;
}

bool SheetRowWriter::writeFormula(int row, int column, const Cell &cell)
{
    const StoredText text = StoredText(cell).trimmed();
    return text.size > 0 && text.bytes[0] == '=' && m_sheet->writeFormula(row, column, cell.text());
}

bool SheetRowWriter::writeTime(int row, int column, const Cell &cell)
{
    const QTime time = parseTime(cell.text());
    if (!time.isValid()
        || !m_sheet->writeNum(
            row, column, m_book->datePack(0, 0, 0, time.hour(), time.minute(), time.second(), time.msec()), m_time)) {
        return false;
    }
    m_textChanges.noteTime(column, cell);
    return true;
}

void SheetRowWriter::writeHyperlink(int row, int column, const Cell &cell)
{
    writeText(row, column, cell.bytes(), cell.size(), m_link);
    if (!m_sheet->addHyperlink(cell.text(), row, row, column, column)) {
        ++m_lostLinks;
    }
}

void SheetRowWriter::writeText(int row, int column, const char *bytes, int size, const spreadsheet::Format *format)
{
    const bool isUsual = size <= spreadsheet::maxTextLength && TextCoding::isAscii(bytes, size);
    const std::string_view text = isUsual ? std::string_view(bytes, static_cast<size_t>(size)) : fitted(bytes, size);
    m_sheet->writeText(row, column, text, format);
}

/// The text, cut to what a cell can hold, and in UTF-8, which has no halves of characters.
std::string_view SheetRowWriter::fitted(const char *bytes, int size)
{
    const bool isLong = TextCoding::unitCount(bytes, size) > spreadsheet::maxTextLength;
    if (!isLong && TextCoding::isValidUtf8(bytes, size)) {
        return {bytes, static_cast<size_t>(size)};
    }
    QString text = TextCoding::decode(bytes, size);
    if (isLong) {
        ++m_cut;
        const bool cutsPair = text.at(spreadsheet::maxTextLength - 1).isHighSurrogate();
        text.truncate(spreadsheet::maxTextLength - (cutsPair ? 1 : 0));
    }
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            ++i;
        } else if (text.at(i).isSurrogate()) {
            text[i] = QChar::ReplacementCharacter;
            ++m_replacedCharacters;
        }
    }
    m_fitted = text.toUtf8();
    return {m_fitted.constData(), static_cast<size_t>(m_fitted.size())};
}

QStringList SheetRowWriter::warnings() const
{
    QStringList lines;
    const auto add = [&lines](qint64 count, const QString &text) {
        if (count > 0) {
            lines.append(text.arg(formatInteger(count, true)));
        }
    };
    add(m_outside, QStringLiteral("%1 value(s) beyond the size of the sheet were not written"));
    add(m_cut, QStringLiteral("%1 value(s) longer than a cell can hold were cut to %2 characters")
                   .arg(QStringLiteral("%1"), formatInteger(spreadsheet::maxTextLength, true)));
    add(m_lostLinks, QStringLiteral("%1 hyperlink(s) could not be added"));
    add(m_replacedCharacters,
        QStringLiteral("%1 character(s) can't be written in encoding 'UTF-8' and have been replaced"));
    return lines;
}
