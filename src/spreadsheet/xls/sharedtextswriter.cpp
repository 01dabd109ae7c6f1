#include "spreadsheet/xls/sharedtextswriter.h"

#include "spreadsheet/sizes.h"
#include "spreadsheet/xls/sharedtextslayout.h"
#include "spreadsheet/xls/wholecharacters.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr quint32 textHeadSize = 3;         // length and width
constexpr quint32 largestCharacterSize = 4; // a surrogate pair
constexpr quint32 smallestStep = 8, mostBegins = 1000;

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The text up to the longest that a cell can hold, without half a pair at its end.
QString cutText(std::string_view text)
{
    QString cut = QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    cut.truncate(wholeCharacters(cut.utf16(), cut.size(), maxTextLength));
    return cut;
}

} // namespace

SharedTextsWriter::SharedTextsWriter(const TextTable &texts, quint32 loaded, std::vector<Record> records)
    : m_texts(texts)
    , m_loaded(loaded)
    , m_records(std::move(records))
{
    m_numbers.reserve(loaded);
    for (quint32 i = 0; i < loaded; ++i) {
        m_numbers.push_back(i);
    }
    if (!m_records.empty()) {
        m_uses = m_records.front().u32(0);
    }
}

quint32 SharedTextsWriter::addNumberOf(quint32 text)
{
    if (text >= m_numbers.size()) {
        m_numbers.resize(std::max<size_t>(m_texts.size(), text + 1), none);
    }
    m_numbers[text] = m_loaded + static_cast<quint32>(m_added.size());
    m_added.push_back(text);
    return m_numbers[text];
}

bool SharedTextsWriter::isTooLong(quint32 text) const
{
    const std::string_view found = m_texts.text(text);
    return found.size() > static_cast<size_t>(maxTextLength)
           && QString::fromUtf8(found.data(), static_cast<int>(found.size())).size() > maxTextLength;
}

void SharedTextsWriter::write(RecordWriter &out)
{
    const quint32 count = m_loaded + static_cast<quint32>(m_added.size());
    if (count == 0 && m_records.empty()) {
        return;
    }
    m_step = std::max(smallestStep, count / mostBegins + 1);
    const int headPlace = out.position() + static_cast<int>(recordHeaderSize);
    copyLoaded(out);
    for (const quint32 text : m_added) {
        appendText(out, m_texts.text(text));
    }
    out.end();
    out.buffer().setU32(headPlace, std::max(m_uses, count));
    out.buffer().setU32(headPlace + 4, count);
    writeIndex(out);
}

/// Leaves the last record open. Texts of the loaded file stay in the records that they are in, since a text that goes
/// on in another record can't be moved by itself.
void SharedTextsWriter::copyLoaded(RecordWriter &out)
{
    std::vector<TextPlace> places = sharedTextPlaces(m_records, m_loaded);
    m_recordBegin = out.position();
    out.begin(RecordId::SharedStrings);
    if (places.empty()) {
        out.buffer().zeros(8);
        for (quint32 text = 0; text < m_loaded; ++text) {
            appendText(out, m_texts.text(text));
        }
        return;
    }
    const TextPlace end = places.back();
    places.pop_back();
    auto next = places.begin();
    for (size_t i = 0; i <= end.record; ++i) {
        if (i > 0) {
            out.end();
            m_recordBegin = out.position();
            out.begin(RecordId::Continue);
        }
        for (; next != places.end() && next->record == i; ++next) {
            if (m_written++ % m_step == 0) {
                m_begins.push_back({static_cast<quint32>(out.position()) + next->offset,
                    static_cast<quint16>(recordHeaderSize + next->offset)});
            }
        }
        const quint32 size = i < end.record ? m_records[i].size : end.offset;
        out.buffer().bytes(reinterpret_cast<const char *>(m_records[i].data), static_cast<int>(size));
    }
}

unsigned SharedTextsWriter::room(RecordWriter &out) const
{
    const auto used = static_cast<unsigned>(out.position() - m_recordBegin) - recordHeaderSize;
    return used < maxRecordData ? maxRecordData - used : 0;
}

void SharedTextsWriter::appendText(RecordWriter &out, std::string_view text)
{
    if (room(out) < textHeadSize + largestCharacterSize) {
        out.end();
        m_recordBegin = out.position();
        out.begin(RecordId::Continue);
    }
    noteBegin(out);
    if (text.size() <= static_cast<size_t>(maxTextLength) && isAscii(text)) {
        out.buffer().u16(static_cast<unsigned>(text.size()));
        appendPieces(out, 1, static_cast<unsigned>(text.size()), text.data());
        return;
    }
    const QString cut = cutText(text);
    out.buffer().u16(static_cast<unsigned>(cut.size()));
    const bool isWide = std::any_of(cut.begin(), cut.end(), [](QChar c) { return c.unicode() > 0xFF; });
    if (isWide) {
        appendPieces(out, 2, static_cast<unsigned>(cut.size()), reinterpret_cast<const char *>(cut.utf16()));
    } else {
        appendPieces(out, 1, static_cast<unsigned>(cut.size()), cut.toLatin1().constData());
    }
}

/// The width of characters and the characters, with the width once more in each further record.
void SharedTextsWriter::appendPieces(RecordWriter &out, unsigned width, unsigned count, const char *bytes)
{
    out.buffer().u8(width - 1);
    for (;;) {
        unsigned step = std::min(count, room(out) / width);
        if (width == 2) {
            step = static_cast<unsigned>(wholeCharacters(
                reinterpret_cast<const ushort *>(bytes), static_cast<int>(count), static_cast<int>(step)));
        }
        out.buffer().bytes(bytes, static_cast<int>(step * width));
        bytes += step * width;
        count -= step;
        if (count == 0) {
            return;
        }
        out.end();
        m_recordBegin = out.position();
        out.begin(RecordId::Continue);
        out.buffer().u8(width - 1);
    }
}

void SharedTextsWriter::noteBegin(RecordWriter &out)
{
    if (m_written++ % m_step == 0) {
        m_begins.push_back(
            {static_cast<quint32>(out.position()), static_cast<quint16>(out.position() - m_recordBegin)});
    }
}

/// EXTSST: every so many texts, where the text begins.
void SharedTextsWriter::writeIndex(RecordWriter &out) const
{
    out.begin(RecordId::ExtendedStrings);
    out.buffer().u16(m_step);
    for (const Begin &begin : m_begins) {
        out.buffer().u32(begin.position);
        out.buffer().u16(begin.inRecord);
        out.buffer().u16(0);
    }
    out.end();
}

} // namespace spreadsheet
