#include "inputs/excelcells.h"

#include "data/dataset.h"
#include "data/values.h"
#include "inputs/textcleanup.h"
#include "spreadsheet/book.h"
#include "spreadsheet/cellreference.h"
#include "spreadsheet/datesystem.h"

#include <algorithm>
#include <new>

using spreadsheet::CellRecord;
using spreadsheet::CellType;

namespace {

/// No text has these bits.
const Cell unknownText = Cell::fromInlineBits(~quint64(0) >> 1);

Cell shortCell(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    return Cell::inlined(bytes.constData(), bytes.size());
}

/// Line ends of two characters become those of one; in place, returns the new size.
int shortenLineEnds(char *bytes, int size)
{
    int out = 0;
    for (int in = 0; in < size; ++in) {
        if (bytes[in] != '\r' || in + 1 == size || bytes[in + 1] != '\n') {
            bytes[out++] = bytes[in];
        }
    }
    return out;
}

} // namespace

ExcelCells::ExcelCells(
    const spreadsheet::Book &book, const spreadsheet::Sheet &sheet, const ExcelReadOptions &options, qint64 byteLimit)
    : m_book(book)
    , m_sheet(sheet)
    , m_options(options)
    , m_rowCount(sheet.lastRow() - options.ignoredRows)
    , m_columnCount(sheet.lastCol() - sheet.firstCol())
    , m_room(byteLimit)
    , m_true(shortCell(boolText(true)))
    , m_false(shortCell(boolText(false)))
    , m_arena(new TextArena)
{
}

void ExcelCells::takeRoom(qint64 bytes)
{
    m_room -= bytes;
    if (m_room < 0) {
        throw std::bad_alloc();
    }
}

void ExcelCells::read(const std::function<void(double)> &progress, Dataset *dataset)
{
    if (m_rowCount < 1 || m_columnCount < 1) {
        return;
    }
    takeRoom(qint64(m_rowCount) * m_columnCount * qint64(sizeof(Cell)));
    m_columns.resize(static_cast<size_t>(m_columnCount));
    m_cells.resize(m_columns.size(), nullptr);
    readRows(progress);
    appendLinks();
    // Columns without cells share theirs.
    CellColumn empty;
    empty.cells.resize(m_rowCount);
    for (size_t i = 0; i < m_columns.size(); ++i) {
        m_columns[i].keep(m_arena);
        dataset->appendColumn(m_cells[i] ? m_columns[i] : empty);
    }
    m_columns.clear();
}

void ExcelCells::readRows(const std::function<void(double)> &progress)
{
    const QVector<ExcelDates::Precision> precisions = ExcelDates::precisions(m_book, m_sheet, m_options.ignoredRows);
    const int firstColumn = m_sheet.firstCol();
    int unreported = 0;
    for (const auto &[number, row] : m_sheet.cells()) {
        const int target = number - m_options.ignoredRows;
        if (target < 0) {
            continue;
        }
        for (const CellRecord &record : row.cells) {
            const int column = record.column - firstColumn;
            const Cell value = cell(number, record, precisions.at(column));
            if (!value.isEmpty()) {
                cells(column)[target] = value;
            }
        }
        unreported += m_columnCount;
        if (unreported >= progressCells && progress) {
            unreported = 0;
            progress(qMin(1.0, static_cast<double>(target) / m_rowCount));
        }
    }
}

/// The cells of a column of the table, made at the first call.
Cell *ExcelCells::cells(int column)
{
    const auto at = static_cast<size_t>(column);
    if (!m_cells[at]) {
        m_columns[at].cells.resize(m_rowCount);
        m_cells[at] = m_columns[at].cells.data();
    }
    return m_cells[at];
}

// Cells

/// `row` is that of the sheet.
Cell ExcelCells::cell(int row, const CellRecord &record, ExcelDates::Precision precision)
{
    switch (record.type) {
    case CellType::Number:
        return isDateNumber(record) ? dateCell(row, record, precision) : numberCell(record.number);
    case CellType::StrictDate:
        return m_book.isDate(record) ? dateCell(row, record, precision) : numberCell(record.number);
    case CellType::String:
        return textCell(record.textId());
    case CellType::Boolean:
        return record.number != 0.0 ? m_true : m_false;
    case CellType::Empty:
    case CellType::Blank:
    case CellType::Error:
        break;
    }
    return Cell();
}

/// For a number, whose neighbours mostly have its format.
bool ExcelCells::isDateNumber(const CellRecord &record)
{
    if (record.format != m_lastFormat) {
        m_lastFormat = record.format;
        m_lastFormatIsDate = m_book.isDate(record);
    }
    return m_lastFormatIsDate;
}

Cell ExcelCells::numberCell(double value)
{
    char plain[ShortestRealWriter::plainCapacity];
    const int size = m_numbers.writePlainly(value, plain);
    return size > 0 ? m_arena->store(plain, size) : m_arena->store(m_numbers.textByLocale(value));
}

Cell ExcelCells::dateCell(int row, const CellRecord &record, ExcelDates::Precision precision)
{
    spreadsheet::DateParts parts;
    if (!m_book.dateUnpack(record.number, &parts)) {
        noteUnknownDate(row, record.column);
        return Cell();
    }
    char text[ExcelDates::capacity];
    return m_arena->store(text, ExcelDates::write(parts, precision, text));
}

void ExcelCells::noteUnknownDate(int row, int column)
{
    const bool isIgnored = (m_options.ignoreHiddenRows && m_sheet.rowHidden(row))
                           || (m_options.ignoreHiddenColumns && m_sheet.colHidden(column));
    if (isIgnored) {
        return;
    }
    m_unknownDates.add([&] { return QString::fromLatin1(spreadsheet::cellReference(row, column)); });
}

/// Cells that share a text in the workbook share it in the table, and it is cleaned once.
Cell ExcelCells::textCell(quint32 id)
{
    if (id >= m_cellOfText.size()) {
        m_cellOfText.resize(qMax<size_t>(id + size_t(1), m_cellOfText.size() * 2), unknownText);
    }
    Cell &known = m_cellOfText[id];
    if (known.bits() == unknownText.bits()) {
        known = cleanText(m_book.text(id));
    }
    return known;
}

Cell ExcelCells::cleanText(std::string_view text)
{
    const char *begin = text.data();
    const char *end = begin + text.size();
    if (m_options.trim) {
        TextCleanup::trim(begin, end);
    }
    if (begin == end) {
        return Cell();
    }
    m_buffer.assign(begin, end);
    const int size = static_cast<int>(m_buffer.size());
    const int cleaned = m_options.simplify ? TextCleanup::simplify(m_buffer.data(), size)
                                           : shortenLineEnds(m_buffer.data(), size);
    return m_arena->store(m_buffer.data(), cleaned);
}

// Links

void ExcelCells::appendLinks()
{
    const int firstColumn = m_sheet.firstCol();
    for (int i = 0; i < m_sheet.hyperlinkSize(); ++i) {
        const spreadsheet::Hyperlink &link = m_sheet.hyperlink(i);
        const int firstRow = qMax(link.range.rowFirst - m_options.ignoredRows, 0);
        const int lastRow = qMin(link.range.rowLast - m_options.ignoredRows, m_rowCount - 1);
        if (link.target.isEmpty() || firstRow > lastRow) {
            continue;
        }
        QByteArray suffix("|");
        TextCoding::appendEncoded(suffix, link.target.constData(), link.target.size());
        const int lastColumn = qMin(link.range.columnLast - firstColumn, m_columnCount - 1);
        for (int column = qMax(link.range.columnFirst - firstColumn, 0); column <= lastColumn; ++column) {
            appendLink(column, firstRow, lastRow, suffix);
        }
    }
}

void ExcelCells::appendLink(int column, int firstRow, int lastRow, const QByteArray &suffix)
{
    Cell *const target = cells(column);
    quint64 lastBits = 0;
    Cell lastLinked;
    // Counted beside the texts, since links may lie over one another without end.
    takeRoom((qint64(lastRow) - firstRow + 1) * qint64(sizeof(Cell)));
    for (int row = firstRow; row <= lastRow; ++row) {
        Cell &value = target[row];
        if (lastLinked.isEmpty() || value.bits() != lastBits) {
            lastBits = value.bits();
            m_buffer.assign(value.bytes(), value.bytes() + value.size());
            m_buffer.insert(m_buffer.end(), suffix.cbegin(), suffix.cend());
            takeRoom(static_cast<qint64>(m_buffer.size()));
            lastLinked = m_arena->store(m_buffer.data(), static_cast<int>(m_buffer.size()));
        }
        value = lastLinked;
    }
}
