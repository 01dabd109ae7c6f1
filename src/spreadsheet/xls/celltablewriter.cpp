#include "spreadsheet/xls/celltablewriter.h"

#include "spreadsheet/cellreference.h"
#include "spreadsheet/xls/compoundfile.h"
#include "spreadsheet/xls/rkencoding.h"
#include "spreadsheet/xls/wholecharacters.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr unsigned cellHeadSize = 6; // row, column, format
constexpr int rowsInBlock = 32;
constexpr quint16 notANumber = 0xFFFF; // marks results of other types

/// The head of a cell's record, put together so that the stream grows once for it.
struct CellHead
{
    quint16 id, size, row, column, format;
};

} // namespace

CellTableWriter::CellTableWriter(SaveContext &context, const Sheet &sheet, SharedFormulas shared, RecordWriter &out)
    : m_context(context)
    , m_sheet(sheet)
    , m_shared(std::move(shared))
    , m_sheetNumbers([&context](const QString &name) { return context.sheets.numberOf(name); })
    , m_out(out)
    , m_rows(context.styles, sheet.layout())
{
}

void CellTableWriter::writeDimensions()
{
    const CellGrid &cells = m_sheet.cells();
    m_out.begin(RecordId::Dimensions);
    m_out.buffer().u32(static_cast<quint32>(cells.firstRow()));
    m_out.buffer().u32(static_cast<quint32>(cells.lastRow()));
    m_out.buffer().u16(static_cast<unsigned>(cells.firstColumn()));
    m_out.buffer().u16(static_cast<unsigned>(cells.lastColumn()));
    m_out.buffer().u16(0);
    m_out.end();
}

/// In blocks of rows: what the rows themselves have, then their cells.
void CellTableWriter::writeCells()
{
    const RowIterator end = m_sheet.cells().end();
    // What is too large for a file isn't finished; see who writes it.
    for (RowIterator block = m_sheet.cells().begin(); block != end && m_out.position() < CompoundFile::maxStreamSize;) {
        const int number = block->first / rowsInBlock;
        RowIterator row = block;
        for (; row != end && row->first / rowsInBlock == number; ++row) {
            m_rows.write(row->first, row->second, m_out);
        }
        for (; block != row; ++block) {
            writeRowCells(block->first, block->second.cells);
        }
    }
}

void CellTableWriter::writeRowCells(int row, const Cells &cells)
{
    quint32 rk = 0;
    for (size_t i = 0; i < cells.size();) {
        const CellRecord &cell = cells[i];
        if (cell.isFormula) {
            writeFormula(row, cell);
            ++i;
        } else if (isRkNumber(cell, &rk)) {
            i = writeNumbers(row, cells, i, rk);
        } else if (isBlank(cell)) {
            i = writeBlanks(row, cells, i);
        } else {
            writeConstant(row, cell);
            ++i;
        }
    }
}

bool CellTableWriter::isBlank(const CellRecord &cell)
{
    return !cell.isFormula && (cell.type == CellType::Blank || cell.type == CellType::Empty);
}

bool CellTableWriter::isRkNumber(const CellRecord &cell, quint32 *bits)
{
    return !cell.isFormula && (cell.type == CellType::Number || cell.type == CellType::StrictDate)
           && encodeRk(cell.number, bits);
}

/// Begins a record with so many bytes behind the cell's place and format, which are to follow.
void CellTableWriter::begin(RecordId id, int row, const CellRecord &cell, unsigned dataSize)
{
    const CellHead head{static_cast<quint16>(id), static_cast<quint16>(cellHeadSize + dataSize),
        static_cast<quint16>(row), cell.column, static_cast<quint16>(format(cell.format))};
    m_out.buffer().bytes(reinterpret_cast<const char *>(&head), sizeof(head));
}

/// Numbers in neighbouring cells share a record. Gives the first cell behind them.
size_t CellTableWriter::writeNumbers(int row, const Cells &cells, size_t from, quint32 rk)
{
    const bool hasNext = from + 1 < cells.size() && cells[from + 1].column == cells[from].column + 1;
    quint32 next = 0;
    if (!hasNext || !isRkNumber(cells[from + 1], &next)) {
        begin(RecordId::Rk, row, cells[from], sizeof(rk));
        m_out.buffer().u32(rk);
        return from + 1;
    }
    m_out.begin(RecordId::MultipleRk);
    m_out.buffer().u16(static_cast<unsigned>(row));
    m_out.buffer().u16(cells[from].column);
    size_t i = from;
    do {
        m_out.buffer().u16(format(cells[i].format));
        m_out.buffer().u32(rk);
        ++i;
    } while (i < cells.size() && cells[i].column == cells[i - 1].column + 1 && isRkNumber(cells[i], &rk));
    m_out.buffer().u16(cells[i - 1].column);
    m_out.end();
    return i;
}

/// The same with empty cells that have a format.
size_t CellTableWriter::writeBlanks(int row, const Cells &cells, size_t from)
{
    size_t i = from + 1;
    while (i < cells.size() && cells[i].column == cells[i - 1].column + 1 && isBlank(cells[i])) {
        ++i;
    }
    if (i == from + 1) {
        begin(RecordId::Blank, row, cells[from], 0);
        return i;
    }
    m_out.begin(RecordId::MultipleBlank);
    m_out.buffer().u16(static_cast<unsigned>(row));
    m_out.buffer().u16(cells[from].column);
    for (size_t blank = from; blank < i; ++blank) {
        m_out.buffer().u16(format(cells[blank].format));
    }
    m_out.buffer().u16(cells[i - 1].column);
    m_out.end();
    return i;
}

void CellTableWriter::writeConstant(int row, const CellRecord &cell)
{
    switch (cell.type) {
    case CellType::Number:
    case CellType::StrictDate:
        begin(RecordId::Number, row, cell, sizeof(cell.number));
        m_out.buffer().f64(cell.number);
        break;
    case CellType::String:
        writeText(row, cell, cell.textId());
        break;
    case CellType::Boolean:
    case CellType::Error:
        begin(RecordId::BoolError, row, cell, 2);
        m_out.buffer().u8(static_cast<unsigned>(cell.number));
        m_out.buffer().u8(cell.type == CellType::Error ? 1 : 0);
        break;
    case CellType::Empty:
    case CellType::Blank:
        begin(RecordId::Blank, row, cell, 0);
        break;
    }
}

void CellTableWriter::writeText(int row, const CellRecord &cell, quint32 text)
{
    if (m_context.texts.isTooLong(text)) {
        m_context.textWarnings.add([&] {
            return QStringLiteral("Text in %1 has more than %2 characters and was cut in .xls")
                .arg(placeOf(row, cell))
                .arg(maxTextLength);
        });
    }
    begin(RecordId::LabelShared, row, cell, sizeof(quint32));
    m_out.buffer().u32(m_context.texts.numberOf(text));
}

void CellTableWriter::writeFormula(int row, const CellRecord &cell)
{
    const FormulaRecord *formula = m_sheet.cells().formula(row, cell.column);
    if (formula && formula->stored.isEmpty()) {
        writeNewFormula(row, cell, formula->text);
    } else if (formula) {
        writeStoredFormula(row, cell, formula->stored);
    } else {
        writeConstant(row, cell);
    }
}

/// Its result is an empty text until the program that opens the file has worked it out: better none than a wrong one.
void CellTableWriter::writeNewFormula(int row, const CellRecord &cell, const QByteArray &text)
{
    constexpr unsigned resultToTokenSize = 16, toBeWorkedOut = 0x0003, emptyText = 3;
    CompiledFormula compiled;
    QString reason;
    if (!compileFormula(text, m_sheetNumbers, &compiled, &reason)) {
        m_context.formulaWarnings.add([&] {
            return QStringLiteral("Formula in %1 could not be written to .xls and was written as text: %2")
                .arg(placeOf(row, cell), reason);
        });
        const QByteArray shown = '=' + text;
        writeText(row, cell, m_context.book.texts.add({shown.constData(), static_cast<size_t>(shown.size())}));
        return;
    }
    const auto size = static_cast<unsigned>(compiled.tokens.size() + compiled.arrays.size());
    begin(RecordId::Formula, row, cell, resultToTokenSize + size);
    m_out.buffer().u32(emptyText);
    m_out.buffer().u16(0);
    m_out.buffer().u16(notANumber);
    m_out.buffer().u16(toBeWorkedOut);
    m_out.buffer().u32(0);
    m_out.buffer().u16(static_cast<unsigned>(compiled.tokens.size()));
    m_out.buffer().bytes(compiled.tokens);
    m_out.buffer().bytes(compiled.arrays);
}

void CellTableWriter::writeStoredFormula(int row, const CellRecord &cell, QByteArray stored)
{
    constexpr int formatPlace = 8, resultPlace = 10, markPlace = 16;
    if (m_shared.prepare(&stored) == SharedFormulas::Form::Lost) {
        m_context.formulaWarnings.add([&] {
            return QStringLiteral("Formula in %1 could not be kept and was replaced by its last result")
                .arg(placeOf(row, cell));
        });
        writeConstant(row, cell);
        return;
    }
    qToLittleEndian<quint16>(static_cast<quint16>(format(cell.format)), stored.data() + formatPlace);
    m_out.buffer().bytes(stored);
    const bool hasText = qFromLittleEndian<quint16>(stored.constData() + markPlace) == notANumber
                         && stored.at(resultPlace) == 0 && cell.type == CellType::String;
    if (hasText) {
        writeResultText(cell.textId());
    }
}

/// STRING: the text that a formula gave last.
void CellTableWriter::writeResultText(quint32 text)
{
    const std::string_view utf8 = m_context.book.texts.text(text);
    QString result = QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
    result.truncate(wholeCharacters(result.utf16(), result.size(), maxTextLength));
    const bool isWide = std::any_of(result.begin(), result.end(), [](QChar c) { return c.unicode() > 0xFF; });
    const int width = isWide ? 2 : 1;
    const QByteArray narrow = isWide ? QByteArray() : result.toLatin1();
    const char *bytes = isWide ? reinterpret_cast<const char *>(result.utf16()) : narrow.constData();
    constexpr int headSize = 3;
    int done = 0;
    do {
        const int head = done == 0 ? headSize : 1;
        const int room = (static_cast<int>(maxRecordData) - head) / width;
        const int count = wholeCharacters(result.utf16() + done, result.size() - done, room);
        m_out.begin(done == 0 ? RecordId::String : RecordId::Continue);
        if (done == 0) {
            m_out.buffer().u16(static_cast<unsigned>(result.size()));
        }
        m_out.buffer().u8(isWide ? 1 : 0);
        m_out.buffer().bytes(bytes + done * width, count * width);
        m_out.end();
        done += count;
    } while (done < result.size());
}

QString CellTableWriter::placeOf(int row, const CellRecord &cell) const
{
    return m_sheet.name() + QLatin1Char('!') + QString::fromLatin1(cellReference(row, cell.column));
}

} // namespace spreadsheet
