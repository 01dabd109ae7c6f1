#include "spreadsheet/xls/xlscellreader.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/cellerror.h"
#include "spreadsheet/cellreference.h"
#include "spreadsheet/xls/biffstrings.h"
#include "spreadsheet/xls/continueddata.h"
#include "spreadsheet/xls/rknumber.h"
#include "spreadsheet/xls/xlserrors.h"
#include "spreadsheet/xls/xlssource.h"

#include <cmath>
#include <cstring>

namespace spreadsheet {
namespace {

constexpr quint32 cellHeadSize = 6; // row, column, format

/// Bytes that a record of a cell has at least; 0 for other records.
constexpr quint32 smallestSize(RecordId id)
{
    switch (id) {
    case RecordId::Blank:
    case RecordId::MultipleBlank:
        return cellHeadSize;
    case RecordId::BoolError:
        return cellHeadSize + 2;
    case RecordId::Label:
    case RecordId::RichLabel:
        return cellHeadSize + 2;
    case RecordId::Rk:
    case RecordId::LabelShared:
        return cellHeadSize + 4;
    case RecordId::MultipleRk:
        return cellHeadSize + 6;
    case RecordId::Number:
        return cellHeadSize + 8;
    case RecordId::Formula:
        return cellHeadSize + 16;
    case RecordId::FormulaOfVersion3:
    case RecordId::FormulaOfVersion4:
        return cellHeadSize + 12;
    default:
        return 0;
    }
}

double realAt(const Record &record, quint32 at)
{
    const quint64 bits = record.u64(at);
    double value = 0;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

} // namespace

XlsCellReader::XlsCellReader(const XlsSource &source, BookData &book, Sheet &sheet)
    : m_source(source)
    , m_book(book)
    , m_sheet(sheet)
{
}

bool XlsCellReader::isCell(RecordId id)
{
    return smallestSize(id) > 0;
}

bool XlsCellReader::read(RecordReader &records)
{
    const Record record = records.record();
    const quint32 smallest = smallestSize(record.id);
    if (smallest == 0) {
        return true;
    }
    const quint16 column = record.u16(2);
    if (record.size < smallest || column >= maxColumns(FileKind::Xls)) {
        return failAt(record);
    }
    switch (record.id) {
    case RecordId::Blank:
        cellOf(record).type = CellType::Blank;
        return true;
    case RecordId::Number:
        setNumber(cellOf(record), realAt(record, cellHeadSize));
        return true;
    case RecordId::Rk:
        setNumber(cellOf(record), rkNumber(record.u32(cellHeadSize)));
        return true;
    case RecordId::BoolError:
        setBoolOrError(cellOf(record), record.u8(cellHeadSize), record.u8(cellHeadSize + 1));
        return true;
    case RecordId::MultipleBlank:
    case RecordId::MultipleRk:
        return readSeveral(record);
    case RecordId::LabelShared:
        return readSharedText(record);
    case RecordId::Formula:
    case RecordId::FormulaOfVersion3:
    case RecordId::FormulaOfVersion4:
        return readFormula(records);
    default:
        return readLabel(records);
    }
}

bool XlsCellReader::failAt(const Record &record)
{
    const QString place = QString::fromLatin1(cellReference(record.u16(0), record.u16(2)));
    m_error = damagedText(QStringLiteral("cell %1 isn't readable").arg(place));
    return false;
}

CellRecord &XlsCellReader::cellAt(int row, int column, quint32 format)
{
    CellRecord &cell = m_sheet.cells().cellFor(row, column);
    cell.number = 0.0;
    cell.format = format < m_book.loadedFormats ? format : 0;
    return cell;
}

CellRecord &XlsCellReader::cellOf(const Record &record)
{
    return cellAt(record.u16(0), record.u16(2), record.u16(4));
}

void XlsCellReader::setNumber(CellRecord &cell, double value)
{
    static const int numberError = errorCode("#NUM!");
    const bool isNumber = std::isfinite(value);
    cell.type = isNumber ? CellType::Number : CellType::Error;
    cell.number = isNumber ? value : numberError;
}

void XlsCellReader::setBoolOrError(CellRecord &cell, quint8 value, bool isError)
{
    cell.type = isError ? CellType::Error : CellType::Boolean;
    cell.number = isError ? value : value != 0;
}

/// Neighbouring cells of a row: first column, a format each, with a number behind it unless they are blank, and the
/// last column.
bool XlsCellReader::readSeveral(const Record &record)
{
    const bool hasNumbers = record.id == RecordId::MultipleRk;
    const quint32 step = hasNumbers ? 6 : 2;
    const int first = record.u16(2);
    const int last = record.u16(record.size - 2);
    const auto count = static_cast<quint32>(last - first + 1);
    if (last < first || last >= maxColumns(FileKind::Xls) || 4 + count * step + 2 > record.size) {
        return failAt(record);
    }
    const int row = record.u16(0);
    for (quint32 i = 0; i < count; ++i) {
        const quint32 at = 4 + i * step;
        CellRecord &cell = cellAt(row, first + static_cast<int>(i), record.u16(at));
        if (hasNumbers) {
            setNumber(cell, rkNumber(record.u32(at + 2)));
        } else {
            cell.type = CellType::Blank;
        }
    }
    return true;
}

bool XlsCellReader::readSharedText(const Record &record)
{
    const quint32 text = record.u32(cellHeadSize);
    if (text >= m_source.loadedTexts) {
        return failAt(record);
    }
    cellOf(record).setTextId(text);
    return true;
}

bool XlsCellReader::readLabel(RecordReader &records)
{
    const Record record = records.record();
    ContinuedData data(records, cellHeadSize);
    if (!readText(data, m_source.textCodec, &m_text)) {
        return failAt(record);
    }
    cellOf(record).setTextId(m_book.texts.add(m_text));
    return true;
}

bool XlsCellReader::readFormula(RecordReader &records)
{
    const Record record = records.record();
    const auto skipContinued = [&records] {
        while (records.nextIf(RecordId::Continue)) {
        }
    };
    skipContinued();
    if (records.nextIf(RecordId::SharedFormula) || records.nextIf(RecordId::Array) || records.nextIf(RecordId::Table)) {
        skipContinued();
    }
    const auto *begin = reinterpret_cast<const char *>(record.begin());
    const auto *end = reinterpret_cast<const char *>(records.record().end());
    const QByteArray stored(begin, static_cast<int>(end - begin));
    CellRecord &cell = cellOf(record);
    setResult(record, cell);
    if (cell.type == CellType::String) {
        m_text.clear();
        if (records.nextIf(RecordId::String)) {
            ContinuedData data(records, 0);
            if (!readText(data, m_source.textCodec, &m_text)) {
                return failAt(record);
            }
        }
        cell.setTextId(m_book.texts.add(m_text));
    }
    m_sheet.cells().setFormula(record.u16(0), record.u16(2), {QByteArray(), stored});
    return true;
}

/// The last result: a real, or marked by its upper half another type. A text stands in a record of its own.
void XlsCellReader::setResult(const Record &formula, CellRecord &cell)
{
    constexpr quint32 at = cellHeadSize;
    constexpr quint16 isNoNumber = 0xFFFF;
    enum Kind { Text = 0, Boolean = 1, Error = 2, EmptyText = 3 };
    if (formula.u16(at + 6) != isNoNumber) {
        setNumber(cell, realAt(formula, at));
        return;
    }
    switch (formula.u8(at)) {
    case Boolean:
    case Error:
        setBoolOrError(cell, formula.u8(at + 2), formula.u8(at) == Error);
        break;
    default:
        cell.type = CellType::String;
    }
}

} // namespace spreadsheet
