#include "spreadsheet/xls/globalswriter.h"

#include "spreadsheet/xls/beginrecord.h"
#include "spreadsheet/xls/formatcheck.h"
#include "spreadsheet/xls/xlssource.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr auto writeAccess = static_cast<RecordId>(0x005C);
constexpr auto protectRevisions = static_cast<RecordId>(0x01AF), revisionsPassword = static_cast<RecordId>(0x01BC);
constexpr auto calculatorId = static_cast<RecordId>(0x01C1);
constexpr unsigned codePage = 1200; // UTF-16

} // namespace

// A new workbook

void GlobalsWriter::writeNew()
{
    constexpr int userNameSize = 112;
    constexpr unsigned functionGroups = 14;
    writeBegin(SubstreamType::Globals, m_out);
    m_out.write(RecordId::InterfaceHeader, {codePage});
    m_out.write(RecordId::Mms, {0});
    m_out.write(RecordId::InterfaceEnd, QByteArray());
    m_out.write(writeAccess, QByteArray(3, '\0') + QByteArray(userNameSize - 3, ' '));
    m_out.write(RecordId::CodePage, {codePage});
    m_out.write(RecordId::Dsf, {0});
    writeSheetIds({});
    m_out.write(RecordId::FunctionGroupCount, {functionGroups});
    for (const RecordId id :
        {RecordId::WindowProtect, RecordId::Protect, RecordId::Password, protectRevisions, revisionsPassword}) {
        m_out.write(id, {0});
    }
    writeWindow();
    m_out.write(RecordId::Backup, {0});
    m_out.write(RecordId::HideObjects, {0});
    m_out.write(RecordId::Date1904, {m_context.book.uses1904 ? 1u : 0u});
    m_out.write(RecordId::Precision, {1});
    m_out.write(RecordId::RefreshAll, {0});
    m_out.write(RecordId::BookBool, {0});
    writeStyles();
    m_out.write(RecordId::UsesNaturalLanguage, {0});
    writeSheets();
    m_out.write(RecordId::Country, {1, 1});
    writeBefore(RecordId::Eof);
    m_out.write(RecordId::Eof, QByteArray());
}

void GlobalsWriter::writeWindow()
{
    constexpr unsigned left = 480, top = 60, width = 18195, height = 8505; // twips
    constexpr unsigned scrollBarsAndTabs = 0x0038, tabsShare = 600;
    m_out.write(RecordId::Window1, {left, top, width, height, scrollBarsAndTabs, 0, 0, 1, tabsShare});
}

void GlobalsWriter::writeStyles()
{
    for (const RecordId id : {RecordId::Font, RecordId::NumberFormat, RecordId::ExtendedFormat}) {
        writeAdded(id);
    }
    constexpr unsigned normalStyle = 0x8000, ofNoLevel = 0xFF00;
    m_out.write(RecordId::Style, {normalStyle, ofNoLevel});
    m_context.styles.palette().write(m_out);
}

/// What the book has beyond the file of a kind of records.
void GlobalsWriter::writeAdded(RecordId id)
{
    const StyleWriter &styles = m_context.styles;
    const std::vector<QByteArray> &added = id == RecordId::Font           ? styles.fonts()
                                           : id == RecordId::NumberFormat ? styles.numberFormats()
                                                                          : styles.cellFormats();
    for (size_t i = m_addedCounts[id]; i < added.size(); ++i) {
        m_out.write(id, added[i]);
    }
    m_addedCounts[id] = added.size();
}

// Sheets

void GlobalsWriter::writeSheets()
{
    for (size_t i = m_sheetPlaces.size(); i < m_context.book.sheets.size(); ++i) {
        writeSheetEntry(m_context.book.sheets[i]);
    }
}

void GlobalsWriter::writeSheetEntry(const SheetEntry &sheet)
{
    m_out.begin(RecordId::BoundSheet);
    m_sheetPlaces.push_back(m_out.position());
    m_out.buffer().u32(0);
    m_out.buffer().u8(0);
    m_out.buffer().u8(static_cast<unsigned>(sheet.type));
    m_out.buffer().u8(static_cast<unsigned>(sheet.name.size()));
    m_out.buffer().characters(sheet.name);
    m_out.end();
}

void GlobalsWriter::setSheetBegin(size_t sheet, quint32 position)
{
    m_out.buffer().setU32(m_sheetPlaces[sheet], position);
}

// A loaded file

void GlobalsWriter::writeChanged(bool isCalculated)
{
    m_isCalculated = isCalculated;
    m_hasReferences = !m_context.sheets.isChanged();
    const GlobalRecords &records = m_context.globals;
    for (size_t i = 0; i < records.size(); ++i) {
        m_last[records[i].id] = i;
    }
    for (size_t i = 0; i < records.size(); ++i) {
        const Record &record = records[i];
        const bool isReplaced = record.id == RecordId::SharedStrings
                                || (record.id == RecordId::ExternSheet && m_context.sheets.isChanged());
        while (isReplaced && i + 1 < records.size() && records[i + 1].id == RecordId::Continue) {
            ++i;
        }
        writeBefore(record.id);
        writeRecord(record, m_last[record.id] == i);
    }
}

/// `isLast`: the file has no more of this kind.
void GlobalsWriter::writeRecord(const Record &record, bool isLast)
{
    switch (record.id) {
    case RecordId::BoundSheet:
        m_sheetPlaces.push_back(m_out.position() + static_cast<int>(recordHeaderSize));
        m_out.copy(record);
        if (m_sheetPlaces.size() == m_context.source->sheets.size()) {
            writeSheets();
        }
        return;
    case RecordId::Font:
    case RecordId::NumberFormat:
    case RecordId::ExtendedFormat:
        m_out.copy(record);
        if (isLast) {
            writeAdded(record.id);
        }
        return;
    case RecordId::ExtendedFormatCheck:
        writeFormatCheck(record);
        return;
    case RecordId::SupBook:
        m_context.sheets.copyBook(m_out, record);
        return;
    case RecordId::SheetIds:
        writeSheetIds(record);
        return;
    case RecordId::ExternSheet:
        if (!m_context.sheets.isChanged()) {
            m_out.copy(record);
        }
        return;
    case RecordId::SharedStrings:
    case RecordId::ExtendedStrings:
        return; // written before what follows them, or here by writeBefore()
    default:
        if (record.id == calculatorId) {
            writeCalculator(record);
        } else {
            m_out.copy(record);
        }
    }
}

/// What the book has and the file hasn't goes to its place in the order of records.
void GlobalsWriter::writeBefore(RecordId id)
{
    const bool isEnd = id == RecordId::Eof;
    const bool isBehindStyles = id == RecordId::ExtendedFormat || id == RecordId::BoundSheet;
    for (const RecordId kind : {RecordId::Font, RecordId::NumberFormat, RecordId::ExtendedFormat}) {
        if (isBehindStyles && m_last.count(kind) == 0) {
            writeAdded(kind);
        }
    }
    const bool isBehindReferences = id == RecordId::Name || id == RecordId::DrawingGroup || id == calculatorId
                                    || id == RecordId::SharedStrings || isEnd;
    const bool isPlace = m_context.sheets.isInFile() ? id == RecordId::ExternSheet : isBehindReferences;
    if (isPlace && !m_hasReferences) {
        if (m_context.sheets.isChanged()) {
            m_context.sheets.write(m_out);
        }
        m_hasReferences = true;
    }
    if ((id == RecordId::SharedStrings || isEnd) && !m_hasTexts) {
        m_context.texts.write(m_out);
        m_hasTexts = true;
    }
}

/// TABID: a number for each sheet.
void GlobalsWriter::writeSheetIds(const Record &record)
{
    constexpr quint32 idSize = 2;
    const quint32 known = record.size / idSize;
    const auto count = static_cast<quint32>(m_context.book.sheets.size());
    ByteBuffer ids;
    unsigned largest = 0;
    for (quint32 i = 0; i < std::max(known, count); ++i) {
        const unsigned id = i < known ? record.u16(i * idSize) : largest + 1;
        largest = std::max(largest, id);
        ids.u16(id);
    }
    m_out.write(RecordId::SheetIds, ids);
}

/// The sum that guards the extensions of cell formats, when it is one that we know to make.
void GlobalsWriter::writeFormatCheck(const Record &record)
{
    FormatCheck check;
    for (const Record &other : m_context.globals) {
        if (other.id == RecordId::ExtendedFormat) {
            check.add(other.data, other.size);
        }
    }
    const bool isKnown = check.isStatedIn(record);
    for (const QByteArray &format : m_context.styles.cellFormats()) {
        check.add(reinterpret_cast<const uchar *>(format.constData()), static_cast<quint32>(format.size()));
    }
    const int place = m_out.position() + static_cast<int>(recordHeaderSize);
    m_out.copy(record);
    if (isKnown) {
        check.enter(m_out.buffer(), place);
    }
}

/// Which program worked the results out. An old one's are worked out anew when the file is opened.
void GlobalsWriter::writeCalculator(const Record &record)
{
    constexpr quint32 programPlace = 4;
    const int place = m_out.position() + static_cast<int>(recordHeaderSize + programPlace);
    m_out.copy(record);
    if (!m_isCalculated && record.size >= programPlace + sizeof(quint32)) {
        m_out.buffer().setU32(place, 0);
    }
}

} // namespace spreadsheet
