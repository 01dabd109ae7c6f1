#include "spreadsheet/xls/sheetreferences.h"

namespace spreadsheet {
namespace {

constexpr quint16 ownBookMark = 0x0401;
constexpr size_t mostReferences = 0xFFFF;
constexpr int largestRecord = 2 + 1370 * 6; // no reference is cut in two

bool isOwnBook(const Record &record)
{
    return record.size == 4 && record.u16(2) == ownBookMark;
}

} // namespace

SheetReferences::SheetReferences(const BookData &book, const GlobalRecords &records)
    : m_book(book)
{
    for (size_t i = 0; i < book.sheets.size(); ++i) {
        m_sheets.insert(book.sheets[i].name.toLower(), static_cast<int>(i));
    }
    QByteArray references;
    RecordId previous = RecordId::Eof;
    for (const Record &record : records) {
        const bool isContinued = record.id == RecordId::Continue && previous == RecordId::ExternSheet;
        if (record.id == RecordId::SupBook) {
            m_ownBook = isOwnBook(record) ? m_books : m_ownBook;
            m_hasOwnBook = m_ownBook >= 0;
            ++m_books;
        } else if (record.id == RecordId::ExternSheet || isContinued) {
            m_isInFile = true;
            references.append(reinterpret_cast<const char *>(record.data), static_cast<int>(record.size));
        }
        previous = isContinued ? previous : record.id;
    }
    loadReferences(references);
}

void SheetReferences::loadReferences(const QByteArray &data)
{
    const auto word = [&data](int at) { return qFromLittleEndian<quint16>(data.constData() + at); };
    const int count = data.size() < 2 ? 0 : word(0);
    for (int i = 0, at = 2; i < count && at + 6 <= data.size(); ++i, at += 6) {
        const Reference reference{word(at), word(at + 2), word(at + 4)};
        if (reference.book == m_ownBook && reference.first == reference.last) {
            m_numbers.insert(reference.first, static_cast<int>(m_references.size()));
        }
        m_references.push_back(reference);
    }
}

int SheetReferences::numberOf(const QString &name)
{
    const int sheet = m_sheets.value(name.toLower(), -1);
    if (sheet < 0) {
        return -1;
    }
    const auto known = m_numbers.constFind(sheet);
    if (known != m_numbers.constEnd()) {
        return *known;
    }
    if (m_references.size() >= mostReferences) {
        return -1;
    }
    if (m_ownBook < 0) {
        m_ownBook = m_books;
    }
    const auto tab = static_cast<quint16>(sheet);
    const auto number = static_cast<int>(m_references.size());
    m_references.push_back({static_cast<quint16>(m_ownBook), tab, tab});
    m_numbers.insert(sheet, number);
    m_isChanged = true;
    return number;
}

void SheetReferences::write(RecordWriter &out) const
{
    if (!m_hasOwnBook) {
        out.write(RecordId::SupBook, {static_cast<unsigned>(m_book.sheets.size()), ownBookMark});
    }
    ByteBuffer data;
    data.u16(static_cast<unsigned>(m_references.size()));
    for (const Reference &reference : m_references) {
        data.u16(reference.book);
        data.u16(reference.first);
        data.u16(reference.last);
    }
    out.write(RecordId::ExternSheet, data, largestRecord);
}

void SheetReferences::copyBook(RecordWriter &out, const Record &record) const
{
    if (isOwnBook(record)) {
        out.write(RecordId::SupBook, {static_cast<unsigned>(m_book.sheets.size()), ownBookMark});
    } else {
        out.copy(record);
    }
}

} // namespace spreadsheet
