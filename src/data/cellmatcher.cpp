#include "data/cellmatcher.h"

#include <algorithm>
#include <cstring>

namespace {

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

QByteArray storedForm(const QString &text)
{
    QByteArray bytes;
    TextCoding::appendEncoded(bytes, text.constData(), text.size());
    return bytes;
}

} // namespace

CellMatcher::CellMatcher(const QString &text, Qt::CaseSensitivity cs)
    : m_text(text)
    , m_bytes(storedForm(text))
    , m_cs(cs)
{
    const bool ascii = TextCoding::isAscii(m_bytes.constData(), m_bytes.size());
    if (cs == Qt::CaseInsensitive) {
        std::transform(m_bytes.begin(), m_bytes.end(), m_bytes.begin(), lowered);
        m_plain = ascii;
    } else {
        // Half a surrogate pair is found inside the pair, whose bytes don't hold it.
        m_plain = std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSurrogate(); });
    }
}

bool CellMatcher::foundIn(const Cell &cell) const
{
    if (m_text.isEmpty()) {
        return true;
    }
    if (m_plain && m_cs == Qt::CaseSensitive) {
        return memmem(cell.bytes(), static_cast<size_t>(cell.size()), m_bytes.constData(),
                   static_cast<size_t>(m_bytes.size()))
               != nullptr;
    }
    // Some characters beyond ASCII have ASCII letters as their lower case.
    if (m_plain && TextCoding::isAscii(cell.bytes(), cell.size())) {
        const char *const begin = cell.bytes();
        const char *const end = begin + cell.size();
        const auto same = [](char a, char b) { return lowered(a) == b; };
        return std::search(begin, end, m_bytes.cbegin(), m_bytes.cend(), same) != end;
    }
    return cell.text().contains(m_text, m_cs);
}
