#include "data/rowsortkey.h"

#include "data/dateparser.h"
#include "data/numberreader.h"
#include "data/rowkeyindex.h"
#include "data/textbuffer.h"
#include "data/wholenumber.h"

#include <QtEndian>
#include <algorithm>

namespace {

constexpr quint64 topBit = 1ULL << 63;

quint64 orderedBits(double number)
{
    if (number == 0) {
        return topBit; // there are two zeros
    }
    quint64 bits;
    std::memcpy(&bits, &number, sizeof bits);
    return bits & topBit ? ~bits : bits | topBit;
}

/// Appends UTF-8's form of `value`, for surrogates too.
void appendValue(TextBuffer &out, uint value)
{
    if (value < 0x80) {
        out.append(static_cast<char>(value));
        return;
    }
    int shift = value < 0x800 ? 6 : value < 0x10000 ? 12 : 18;
    const uint lead = value < 0x800 ? 0xC0 : value < 0x10000 ? 0xE0 : 0xF0;
    out.append(static_cast<char>(lead | value >> shift));
    while (shift > 0) {
        shift -= 6;
        out.append(static_cast<char>(0x80 | (value >> shift & 0x3F)));
    }
}

/// Replaces what `out` holds by bytes whose order is that of QString::compare, which goes by code units and, where case
/// doesn't count, takes the second half of a surrogate pair for the whole folded character.
void writeOrdered(TextBuffer &out, const QString &text, bool caseSensitive)
{
    out.resize(0);
    QChar before;
    for (const QChar unit : text) {
        uint value = unit.unicode();
        if (!caseSensitive) {
            const bool isPair = unit.isLowSurrogate() && before.isHighSurrogate();
            value = QChar::toCaseFolded(isPair ? QChar::surrogateToUcs4(before, unit) : value);
        }
        appendValue(out, value);
        before = unit;
    }
}

/// True when the order by bytes isn't that by code units: a character has two of these.
bool hasPairs(const Cell &cell)
{
    const char *bytes = cell.bytes();
    const int size = cell.size();
    return !TextCoding::isAscii(bytes, size)
           && std::any_of(bytes, bytes + size, [](char byte) { return static_cast<uchar>(byte) >= 0xF0; });
}

Cell orderedCell(const Cell &cell, bool caseSensitive, TextArena &arena)
{
    TextBuffer buffer;
    if (caseSensitive) {
        if (!hasPairs(cell)) {
            return cell;
        }
    } else if (TextCoding::isAscii(cell.bytes(), cell.size())) {
        const auto isUpper = [](char c) { return c >= 'A' && c <= 'Z'; };
        const char *bytes = cell.bytes();
        if (std::none_of(bytes, bytes + cell.size(), isUpper)) {
            return cell;
        }
        buffer.append(bytes, cell.size());
        std::transform(buffer.cbegin(), buffer.cend(), buffer.begin(),
            [isUpper](char c) { return isUpper(c) ? static_cast<char>(c | 0x20) : c; });
        return arena.store(buffer.constData(), buffer.size());
    }
    writeOrdered(buffer, cell.text(), caseSensitive);
    return arena.store(buffer.constData(), buffer.size());
}

/// Whether the collator knows an order of its own; that of the C locale doesn't.
bool hasOrder(const QCollator &collator)
{
    return collator.locale().language() != QLocale::C
           && collator.sortKey(QStringLiteral("a")).compare(collator.sortKey(QStringLiteral("b"))) != 0;
}

} // namespace

RowSortKey::RowSortKey(const CellColumn &column, Type type, const QString &dateFormat, TextRules rules, bool descending)
    : m_column(column)
    , m_descending(descending)
{
    if (type == Number) {
        readNumbers();
    } else if (type == Date) {
        readDates(dateFormat);
    }
    if (!m_values.empty() && m_valuesDecide) {
        return;
    }
    if (rules.localeAware) {
        QCollator collator;
        collator.setLocale(QLocale());
        collator.setCaseSensitivity(rules.caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
        if (hasOrder(collator)) {
            makeRanks(collator);
            return;
        }
    }
    makeBytes(rules.caseSensitive);
    m_comparesBytes = m_values.empty();
}

void RowSortKey::setValue(int row, quint64 value)
{
    m_values[static_cast<size_t>(row)] = value;
    m_valuesDecide = m_valuesDecide && (value != 0 || m_column.at(row).isEmpty());
}

void RowSortKey::readNumbers()
{
    const NumberReader reader(false, true);
    m_values.resize(static_cast<size_t>(size()));
    for (int row = 0; row < size(); ++row) {
        bool ok = false;
        const double number = reader.read(m_column.at(row), &ok);
        setValue(row, ok ? orderedBits(number) : 0);
        if (ok && WholeNumber::isShared(number)) {
            setRest(row, number, reader);
        }
    }
}

/// Texts that are no whole numbers keep the place of their value, so that all pairs together stay an order.
void RowSortKey::setRest(int row, double number, const NumberReader &reader)
{
    const qint64 rest = WholeNumber::restOf(m_column.at(row), number, reader).value_or(0);
    if (rest == 0) {
        return;
    }
    if (m_rests.empty()) {
        m_rests.assign(static_cast<size_t>(size()), topBit);
    }
    m_rests[static_cast<size_t>(row)] = static_cast<quint64>(rest) + topBit;
}

void RowSortKey::readDates(const QString &format)
{
    const DateParser parser(format);
    m_values.resize(static_cast<size_t>(size()));
    for (int row = 0; row < size(); ++row) {
        const QDate date = parser.parse(m_column.at(row));
        setValue(row, date.isValid() ? static_cast<quint64>(date.toJulianDay()) + topBit : 0);
    }
}

void RowSortKey::makeBytes(bool caseSensitive)
{
    const Cell *cells = m_column.cells.constData();
    m_texts = cells;
    if (caseSensitive && std::none_of(cells, cells + size(), hasPairs)) {
        return;
    }
    m_arena = new TextArena;
    m_ownTexts.resize(size());
    Cell *texts = m_ownTexts.data();
    for (int row = 0; row < size(); ++row) {
        texts[row] = orderedCell(cells[row], caseSensitive, *m_arena);
    }
    m_texts = texts;
}

void RowSortKey::makeRanks(const QCollator &collator)
{
    RowKeyIndex distinct({m_column.cells.constData()});
    m_ranks.resize(static_cast<size_t>(size()));
    for (int row = 0; row < size(); ++row) {
        m_ranks[static_cast<size_t>(row)] = static_cast<quint64>(distinct.add(row));
    }
    struct Entry
    {
        QCollatorSortKey key;
        int number;
    };
    std::vector<Entry> entries;
    entries.reserve(static_cast<size_t>(distinct.size()));
    std::vector<quint64> rankOf(static_cast<size_t>(distinct.size()));
    for (int number = 0; number < distinct.size(); ++number) {
        const Cell &cell = m_column.at(distinct.firstRow(number));
        if (!cell.isEmpty()) { // an empty text is before all others, which keep the rank 0 for it
            entries.push_back({collator.sortKey(cell.text()), number});
        }
    }
    std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) { return a.key.compare(b.key) < 0; });
    quint64 rank = 0;
    for (size_t i = 0; i < entries.size(); ++i) {
        rank += i == 0 || entries[i - 1].key.compare(entries[i].key) != 0;
        rankOf[static_cast<size_t>(entries[i].number)] = rank;
    }
    for (quint64 &number : m_ranks) {
        number = rankOf[static_cast<size_t>(number)];
    }
}

quint64 RowSortKey::bytesOf(const Cell &cell, Part part)
{
    if (cell.isInline()) {
        return qbswap(cell.bits()); // the size, in the last byte, tells a text from a longer one that goes on with NUL
    }
    const char *bytes = cell.bytes() + part * bytesPerPart;
    const int left = cell.size() - part * bytesPerPart;
    if (left > bytesPerPart) {
        return (qFromBigEndian<quint64>(bytes) & ~0xFFULL) | (bytesPerPart + 1);
    }
    return qbswap(Cell::inlined(bytes, left).bits());
}

int RowSortKey::compareTexts(int a, int b) const
{
    if (!m_texts) {
        const quint64 rankOfA = m_ranks[static_cast<size_t>(a)];
        const quint64 rankOfB = m_ranks[static_cast<size_t>(b)];
        return (rankOfA > rankOfB) - (rankOfA < rankOfB);
    }
    const Cell &textOfA = m_texts[a];
    const Cell &textOfB = m_texts[b];
    const int sizeOfA = textOfA.size();
    const int sizeOfB = textOfB.size();
    const int order = std::memcmp(textOfA.bytes(), textOfB.bytes(), static_cast<size_t>(std::min(sizeOfA, sizeOfB)));
    return order != 0 ? order : sizeOfA - sizeOfB;
}

int RowSortKey::compare(int a, int b) const
{
    int order = 0;
    const quint64 valueOfA = m_values.empty() ? 0 : m_values[static_cast<size_t>(a)];
    const quint64 valueOfB = m_values.empty() ? 0 : m_values[static_cast<size_t>(b)];
    if ((valueOfA != 0 && valueOfB != 0) || (!m_values.empty() && m_valuesDecide)) {
        order = (valueOfA > valueOfB) - (valueOfA < valueOfB);
        if (order == 0) {
            order = (restOf(a) > restOf(b)) - (restOf(a) < restOf(b));
        }
    } else {
        order = compareTexts(a, b);
    }
    return m_descending ? -order : order;
}

bool RowSortKey::isSame(int a, int b) const
{
    if (!m_values.empty()) {
        const quint64 valueOfA = m_values[static_cast<size_t>(a)];
        const quint64 valueOfB = m_values[static_cast<size_t>(b)];
        if (valueOfA != 0 && valueOfB != 0) {
            return valueOfA == valueOfB && restOf(a) == restOf(b);
        }
    }
    return m_column.at(a).sameText(m_column.at(b));
}
