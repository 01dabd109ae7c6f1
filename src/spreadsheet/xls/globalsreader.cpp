#include "spreadsheet/xls/globalsreader.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xls/biffstrings.h"
#include "spreadsheet/xls/codepage.h"
#include "spreadsheet/xls/continueddata.h"
#include "spreadsheet/xls/substreams.h"
#include "spreadsheet/xls/xlsdecryption.h"
#include "spreadsheet/xls/xlserrors.h"

namespace spreadsheet {
namespace {

constexpr size_t maxSheets = 0xFFFF;
constexpr quint16 usualCodePage = 1252;
constexpr int dialogSheet = 3; // a number that BOUNDSHEET records don't use

} // namespace

bool GlobalsReader::fail(const QString &error)
{
    m_error = error;
    return false;
}

bool GlobalsReader::read()
{
    if (!readVersion() || !decrypt() || !findCodePage()) {
        return false;
    }
    RecordReader records = streamReader();
    records.next();
    if (!readRecords(records)) {
        return false;
    }
    m_source.globalsEnd = records.nextOffset();
    m_source.loadedTexts = m_book.texts.size();
    m_source.defaultFormat = m_styles.defaultFormat();
    m_styles.makeFormats(m_book);
    return findSheets();
}

RecordReader GlobalsReader::streamReader() const
{
    const auto *stream = reinterpret_cast<const uchar *>(m_source.workbook.constData());
    return {stream, static_cast<quint32>(m_source.workbook.size())};
}

bool GlobalsReader::readVersion()
{
    RecordReader records = streamReader();
    const bool isRead = records.next();
    if (isRead && isOlderBof(records.record().id)) {
        return fail(oldVersionText());
    }
    if (!isRead || records.record().id != RecordId::Bof) {
        return fail(damagedText(QStringLiteral("it doesn't begin like one")));
    }
    m_source.version = substreamVersion(records.record());
    if (m_source.version != biff8Version && m_source.version != biff5Version) {
        return fail(oldVersionText());
    }
    if (substreamType(records.record()) != SubstreamType::Globals) {
        return fail(damagedText(QStringLiteral("it doesn't begin like one")));
    }
    if (m_source.version == biff5Version) {
        m_book.whyUnchangeable = QStringLiteral("The workbook is of version 5.0 or 95, which can be read but not "
                                                "changed.");
    }
    return true;
}

bool GlobalsReader::decrypt()
{
    const Decryption done = decryptWorkbook(m_source.version, &m_source.workbook);
    if (done == Decryption::Decrypted) {
        m_book.whyUnchangeable = QStringLiteral("The workbook is encrypted, it can be read but not changed.");
    }
    return done != Decryption::Refused || fail(encryptedText());
}

/// Which encoding older texts have, before the first of them is read.
bool GlobalsReader::findCodePage()
{
    if (m_source.version == biff8Version) {
        return true;
    }
    quint16 codePage = usualCodePage;
    RecordReader records = streamReader();
    while (records.next() && records.record().id != RecordId::Eof) {
        if (records.record().id == RecordId::CodePage) {
            codePage = records.record().u16(0);
        }
    }
    m_source.textCodec = codecOfCodePage(codePage);
    m_styles.setOlder(m_source.textCodec);
    return m_source.textCodec
           || fail(QStringLiteral("The workbook's texts are in code page %1, which isn't supported.").arg(codePage));
}

/// Up to the EOF record.
bool GlobalsReader::readRecords(RecordReader &records)
{
    while (records.next()) {
        if (records.record().id == RecordId::Eof) {
            return true;
        }
        if (!readRecord(records)) {
            return false;
        }
    }
    return fail(damagedText(QStringLiteral("it is cut off")));
}

bool GlobalsReader::readRecord(RecordReader &records)
{
    const Record &record = records.record();
    switch (record.id) {
    case RecordId::Bof:
        return skipSubstream(records) || fail(damagedText(QStringLiteral("it is cut off")));
    case RecordId::BoundSheet:
        return addSheet(record);
    case RecordId::Date1904:
        m_book.uses1904 = record.u16(0) == 1;
        return true;
    case RecordId::SharedStrings: {
        ContinuedData data(records, 0);
        return readSharedTexts(data, m_book.texts) || fail(damagedText(QStringLiteral("one of its texts is cut off")));
    }
    default:
        m_styles.add(record);
        return true;
    }
}

bool GlobalsReader::addSheet(const Record &record)
{
    if (m_book.sheets.size() >= maxSheets) {
        return fail(damagedText(QStringLiteral("it has too many sheets")));
    }
    SheetEntry sheet;
    sheet.name = shortTextAt(record, 6, m_source.textCodec);
    sheet.type = record.u8(5);
    sheet.source = static_cast<int>(m_book.sheets.size());
    m_book.sheets.push_back(std::move(sheet));
    m_source.sheets.push_back({record.u32(0), 0});
    return true;
}

bool GlobalsReader::findSheets()
{
    if (m_source.sheets.empty()) {
        return fail(damagedText(QStringLiteral("it has no sheets")));
    }
    size_t damaged = 0;
    if (!findSheetParts(m_source, &damaged)) {
        const QString &name = m_book.sheets[damaged].name;
        return fail(damagedText(QStringLiteral("sheet '%1' isn't complete").arg(name)));
    }
    for (size_t i = 0; i < m_source.sheets.size(); ++i) {
        if (m_book.sheets[i].type == SheetEntry::worksheet && hasDialogMark(m_source.sheets[i].offset)) {
            m_book.sheets[i].type = dialogSheet;
        }
    }
    return true;
}

/// Dialog sheets are listed as worksheets; the options at the beginning of the sheet tell.
bool GlobalsReader::hasDialogMark(quint32 offset) const
{
    const auto *stream = reinterpret_cast<const uchar *>(m_source.workbook.constData());
    RecordReader records(stream, static_cast<quint32>(m_source.workbook.size()), offset);
    while (records.next() && records.record().id != RecordId::Eof && records.record().id != RecordId::Dimensions) {
        if (records.record().id == RecordId::SheetOptions) {
            return records.record().u16(0) & 0x0010;
        }
    }
    return false;
}

} // namespace spreadsheet
