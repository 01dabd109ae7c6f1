#include "transforms/verify/textset.h"

#include <algorithm>

namespace {

/// Folds character by character, as comparing does; folding whole texts would make two letters of some.
QString folded(QString text)
{
    for (int i = 0; i < text.size(); ++i) {
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair) {
            const uint character = QChar::toCaseFolded(QChar::surrogateToUcs4(text.at(i), text.at(i + 1)));
            text[i] = QChar(QChar::highSurrogate(character));
            text[++i] = QChar(QChar::lowSurrogate(character));
        } else {
            text[i] = text.at(i).toCaseFolded();
        }
    }
    return text;
}

QByteArray stored(const QString &text)
{
    QByteArray bytes;
    TextCoding::appendEncoded(bytes, text.constData(), text.size());
    return bytes;
}

} // namespace

TextSet::TextSet(const QStringList &texts, bool caseSensitive)
    : m_caseSensitive(caseSensitive)
{
    for (const QString &text : texts) {
        m_texts.insert(stored(caseSensitive ? text : folded(text)));
    }
}

bool TextSet::contains(Utf16Cell &text) const
{
    const Cell &cell = text.cell();
    if (m_caseSensitive) {
        return m_texts.contains(QByteArray::fromRawData(cell.bytes(), cell.size()));
    }
    if (!text.isAscii()) {
        return m_texts.contains(stored(folded(text.string())));
    }
    TextBuffer lower(cell.size());
    std::transform(cell.bytes(), cell.bytes() + cell.size(), lower.begin(),
        [](char c) { return static_cast<char>(c >= 'A' && c <= 'Z' ? c | 0x20 : c); });
    return m_texts.contains(QByteArray::fromRawData(lower.constData(), lower.size()));
}
