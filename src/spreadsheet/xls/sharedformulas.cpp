#include "spreadsheet/xls/sharedformulas.h"

#include "spreadsheet/xls/bytebuffer.h"
#include "spreadsheet/xls/formula/sharedtokens.h"
#include "spreadsheet/xls/recordreader.h"
#include "spreadsheet/xls/substreams.h"

namespace spreadsheet {
namespace {

// Places in a stored FORMULA record, counted from its header on
constexpr int sizePlace = 2, rowPlace = 4, columnPlace = 6, optionsPlace = 18, tokenSizePlace = 24, tokenPlace = 26;
constexpr quint32 tokensInData = tokenPlace - recordHeaderSize;
constexpr char sharesWithCell = 0x01, tableOfCell = 0x02; // codes that stand for what another cell has
constexpr int shareSize = 5;
constexpr unsigned isSharedOption = 0x0008;

quint16 wordAt(const QByteArray &bytes, int at)
{
    return at + 2 <= bytes.size() ? qFromLittleEndian<quint16>(bytes.constData() + at) : quint16(0);
}

quint32 key(quint16 row, quint16 column)
{
    return static_cast<quint32>(row) << 16 | column;
}

/// The codes of a SHRFMLA record, without what may follow them.
QByteArray sharedTokens(const Record &record)
{
    constexpr quint32 place = 10;
    const quint32 size = record.u16(place - 2);
    const bool isWhole = place + size <= record.size;
    return isWhole ? QByteArray(reinterpret_cast<const char *>(record.data) + place, static_cast<int>(size))
                   : QByteArray();
}

} // namespace

SharedFormulas::SharedFormulas(const XlsSource &source, const XlsSource::SheetPart &part)
{
    const auto *stream = reinterpret_cast<const uchar *>(source.workbook.constData());
    RecordReader records(stream, part.offset + part.size, part.offset);
    records.next();
    quint32 first = 0, stated = 0; // the cell that has the formula, and the one that the others state
    while (records.next()) {
        const Record &record = records.record();
        if (record.id == RecordId::Bof) {
            skipSubstream(records);
        } else if (isFormula(record.id)) {
            first = stated = key(record.u16(0), record.u16(2));
            if (record.u8(tokensInData) == sharesWithCell) {
                stated = key(record.u16(tokensInData + 1), record.u16(tokensInData + 3));
            }
        } else if (record.id == RecordId::SharedFormula) {
            m_tokens.insert(first, sharedTokens(record));
            m_tokens.insert(stated, sharedTokens(record));
        }
    }
}

SharedFormulas::Form SharedFormulas::prepare(QByteArray *stored)
{
    const int tokenSize = wordAt(*stored, tokenSizePlace);
    const bool isWhole = tokenPlace + tokenSize <= stored->size();
    if (!isWhole) {
        return Form::Lost;
    }
    const char code = tokenSize == shareSize ? stored->at(tokenPlace) : '\0';
    if (code != sharesWithCell && code != tableOfCell) {
        return Form::AsStored;
    }
    const quint32 first = key(wordAt(*stored, tokenPlace + 1), wordAt(*stored, tokenPlace + 3));
    const quint16 row = wordAt(*stored, rowPlace);
    const quint16 column = wordAt(*stored, columnPlace);
    if (stored->size() > tokenPlace + tokenSize + static_cast<int>(recordHeaderSize)) {
        m_written.insert(key(row, column)); // what is shared comes with it
        m_written.insert(first);
        return Form::AsStored;
    }
    if (m_written.contains(first)) {
        return Form::AsStored;
    }
    QByteArray tokens = m_tokens.value(first);
    if (tokens.isEmpty() || !expandSharedTokens(&tokens, row, column)) {
        return Form::Lost;
    }
    ByteBuffer record;
    record.bytes(stored->constData(), tokenPlace);
    record.bytes(tokens);
    record.setU16(sizePlace, static_cast<unsigned>(record.size()) - recordHeaderSize);
    record.setU16(optionsPlace, wordAt(*stored, optionsPlace) & ~isSharedOption);
    record.setU16(tokenSizePlace, static_cast<unsigned>(tokens.size()));
    *stored = record.data();
    return Form::Expanded;
}

} // namespace spreadsheet
