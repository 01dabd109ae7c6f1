#include "xlsstreamcheck.h"

#include "spreadsheet/xls/compoundfile.h"
#include "spreadsheet/xls/recordreader.h"
#include "spreadsheet/xls/sharedtextslayout.h"
#include "spreadsheet/xls/substreams.h"

#include <set>

using namespace spreadsheet;

namespace {

/// Goes over a stream and notes what is wrong with it.
class StreamCheck
{
public:
    explicit StreamCheck(const QByteArray &stream)
        : m_stream(stream)
    {
        checkRecords();
        checkGlobals();
        for (size_t i = 0; i < m_sheets.size() && m_faults.isEmpty(); ++i) {
            checkSheet(m_sheets[i], i + 1 < m_sheets.size() ? m_sheets[i + 1] : size());
        }
        checkTexts();
    }

    QStringList faults() const { return m_faults; }

private:
    quint32 size() const { return static_cast<quint32>(m_stream.size()); }
    const uchar *bytes() const { return reinterpret_cast<const uchar *>(m_stream.constData()); }
    void expect(bool isRight, const char *what, quint32 value = 0)
    {
        if (!isRight && m_faults.size() < 5) {
            m_faults.append(QStringLiteral("%1 (%2)").arg(QLatin1String(what)).arg(value));
        }
    }

    void checkRecords()
    {
        RecordReader records(bytes(), size());
        while (records.next()) {
            expect(records.record().size <= maxRecordData, "a record is too large", records.record().size);
        }
        expect(!records.isCut(), "the last record is cut");
    }

    void checkGlobals()
    {
        RecordReader records(bytes(), size());
        expect(records.next() && substreamType(records.record()) == SubstreamType::Globals, "no globals");
        while (records.next() && records.record().id != RecordId::Eof) {
            noteGlobal(records.record());
        }
        m_globalsEnd = records.nextOffset();
        expect(!m_sheets.empty() && m_sheets.front() == m_globalsEnd, "the first sheet doesn't follow");
        expect(m_ownSheets < 0 || m_ownSheets == static_cast<int>(m_sheets.size()), "wrong number of own sheets");
        expect(m_sheetIds < 0 || m_sheetIds == static_cast<int>(m_sheets.size()), "wrong number of sheet ids");
        for (const unsigned font : m_usedFonts) {
            expect(font != 4 && font - (font > 4 ? 1 : 0) < m_fonts, "a format has a font that isn't there", font);
        }
    }

    void noteGlobal(const Record &record)
    {
        switch (record.id) {
        case RecordId::BoundSheet:
            m_sheets.push_back(record.u32(0));
            break;
        case RecordId::Font:
            ++m_fonts;
            break;
        case RecordId::ExtendedFormat:
            expect(record.size == 20, "a format of the wrong size", record.size);
            m_usedFonts.insert(record.u16(0));
            ++m_formats;
            break;
        case RecordId::SupBook:
            m_ownSheets = record.size == 4 && record.u16(2) == 0x0401 ? record.u16(0) : m_ownSheets;
            ++m_books;
            break;
        case RecordId::ExternSheet:
            expect(record.size == 2 + record.u16(0) * 6u, "references of the wrong size", record.size);
            for (quint32 at = 2; at + 6 <= record.size; at += 6) {
                expect(record.u16(at) < m_books, "a reference to no workbook", record.u16(at));
            }
            break;
        case RecordId::SheetIds:
            m_sheetIds = static_cast<int>(record.size / 2);
            break;
        case RecordId::SharedStrings:
            m_texts = {record};
            m_textCount = record.u32(4);
            break;
        case RecordId::Continue:
            if (m_previous == RecordId::SharedStrings) {
                m_texts.push_back(record);
                return; // still the same
            }
            break;
        case RecordId::ExtendedStrings:
            m_textIndex = record;
            break;
        default:
            break;
        }
        m_previous = record.id;
    }

    void checkTexts()
    {
        if (m_texts.empty()) {
            expect(m_textIndex.size == 0, "an index of no texts");
            return;
        }
        const std::vector<TextPlace> places = sharedTextPlaces(m_texts, m_textCount);
        expect(places.size() == m_textCount + 1, "texts are cut");
        for (size_t i = 1; i < m_texts.size(); ++i) {
            expect(!isPairCut(m_texts[i - 1], m_texts[i]), "a surrogate pair is cut", static_cast<quint32>(i));
        }
        expect(m_texts.front().u32(0) >= 1 || m_textCount == 0, "no use of texts");
        const quint32 step = m_textIndex.u16(0);
        expect(step >= 8 && m_textIndex.size == 2 + (m_textCount + step - 1) / step * 8, "index of the wrong size");
        for (quint32 i = 0; i * step < m_textCount && places.size() > i * step; ++i) {
            const TextPlace &place = places[i * step];
            const Record &record = m_texts[place.record];
            expect(m_textIndex.u32(2 + i * 8) == record.data + place.offset - bytes(), "index to a wrong place", i);
            expect(m_textIndex.u16(6 + i * 8) == place.offset + recordHeaderSize, "index into a record is wrong", i);
        }
    }

    /// Readers take the characters of each record for themselves.
    static bool isPairCut(const Record &record, const Record &next)
    {
        return record.size >= 2 && QChar::isHighSurrogate(record.u16(record.size - 2)) && next.u8(0) == 1
               && QChar::isLowSurrogate(next.u16(1));
    }

    void checkSheet(quint32 begin, quint32 end)
    {
        RecordReader records(bytes(), size(), begin);
        expect(records.next() && records.record().id == RecordId::Bof, "a sheet doesn't begin where it should", begin);
        int row = -1, column = -1;
        std::set<int> rows;
        Record previous;
        while (records.next() && records.record().id != RecordId::Eof) {
            const Record &record = records.record();
            expect(record.id != RecordId::Continue || !isPairCut(previous, record), "a surrogate pair is cut");
            previous = record;
            if (record.id == RecordId::Bof) {
                skipSubstream(records);
                continue;
            }
            if (record.id == RecordId::Row) {
                expect(rows.empty() || record.u16(0) > *rows.rbegin(), "rows out of order", record.u16(0));
                expect(((record.u32(12) >> 16) & 0xFFF) < m_formats, "a row with a format that isn't there");
                rows.insert(record.u16(0));
            }
            checkIndex(record);
            const int last = lastColumn(record);
            if (last >= 0) {
                const int first = record.u16(2);
                expect(rows.count(record.u16(0)) == 1, "a cell without its row", record.u16(0));
                expect(record.u16(0) > row || (record.u16(0) == row && first > column), "cells out of order");
                row = record.u16(0);
                column = last;
            }
        }
        expect(records.nextOffset() == end, "a sheet doesn't end where the next one begins", end);
    }

    /// Positions in the sheet's index point to where blocks of rows end.
    void checkIndex(const Record &record)
    {
        for (quint32 at = 16; record.id == RecordId::Index && at + 4 <= record.size; at += 4) {
            RecordReader target(bytes(), size(), record.u32(at));
            expect(target.next() && target.record().id == RecordId::DBCell, "index of rows to a wrong place");
        }
    }

    /// Of a cell's record, which is checked by the way; below 0 for others.
    int lastColumn(const Record &record)
    {
        switch (record.id) {
        case RecordId::LabelShared:
            expect(record.u32(6) < m_textCount, "a text that isn't there", record.u32(6));
            break;
        case RecordId::MultipleRk:
        case RecordId::MultipleBlank: {
            const int width = record.id == RecordId::MultipleRk ? 6 : 2;
            const int last = record.u16(record.size - 2);
            expect(static_cast<int>(record.size) == 6 + width * (last - record.u16(2) + 1), "several cells don't fit");
            return last;
        }
        case RecordId::Formula:
            expect(record.size >= 22 && record.u16(20) + 22u <= record.size, "a formula is cut");
            break;
        case RecordId::Number:
        case RecordId::Rk:
        case RecordId::Blank:
        case RecordId::BoolError:
        case RecordId::Label:
            break;
        default:
            return -1;
        }
        expect(record.u16(4) < m_formats, "a cell with a format that isn't there", record.u16(4));
        return record.u16(2);
    }

    QByteArray m_stream;
    QStringList m_faults;
    std::vector<quint32> m_sheets;
    quint32 m_globalsEnd = 0;
    unsigned m_fonts = 0, m_formats = 0, m_books = 0;
    int m_ownSheets = -1, m_sheetIds = -1;
    std::set<unsigned> m_usedFonts;
    std::vector<Record> m_texts;
    quint32 m_textCount = 0;
    Record m_textIndex;
    RecordId m_previous = RecordId::Eof;
};

} // namespace

QByteArray workbookStream(const QString &path)
{
    CompoundFile file;
    QByteArray stream;
    const int part = file.open(path) ? file.find(QStringLiteral("Workbook")) : -1;
    return part >= 0 && file.read(part, &stream) ? stream : QByteArray();
}

QStringList streamFaults(const QByteArray &stream)
{
    return StreamCheck(stream).faults();
}
