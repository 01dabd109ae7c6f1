#include "transforms/analysis/ngramindex.h"

#include <algorithm>

static bool isWordCharacter(QChar c)
{
    const ushort unit = c.unicode();
    if (unit < 128) {
        return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z') || (unit >= '0' && unit <= '9')
               || unit == '\'';
    }
    return c.isLetter() || c.category() == QChar::Number_DecimalDigit;
}

NgramIndex::NgramIndex(int least, int most, bool caseSensitive)
    : m_least(least)
    , m_most(most)
    , m_caseSensitive(caseSensitive)
    , m_slots(1024)
{
}

const std::vector<int> &NgramIndex::ngramsOf(const QString &text)
{
    readWords(text);
    m_found.clear();
    ++m_textCount;
    const size_t count = m_wordsOfText.size();
    for (size_t start = 0; start + static_cast<size_t>(m_least) <= count; ++start) {
        const size_t end = std::min(count, start + static_cast<size_t>(m_most));
        int number = -1;
        for (size_t i = start; i < end; ++i) {
            Slot &slot = following(number, m_wordsOfText[i]);
            number = slot.number;
            if (i - start + 1 >= static_cast<size_t>(m_least) && slot.lastText != m_textCount) {
                slot.lastText = m_textCount;
                m_found.push_back(number);
            }
        }
    }
    return m_found;
}

QString NgramIndex::text(int number) const
{
    QString text(length(number), QLatin1Char(' '));
    int end = text.size();
    for (int at = number; at >= 0; at = m_nodes[static_cast<size_t>(at)].prefix) {
        const QString &word = m_words[static_cast<size_t>(m_nodes[static_cast<size_t>(at)].word)];
        std::copy(word.cbegin(), word.cend(), text.begin() + (end - word.size()));
        end -= word.size() + 1;
    }
    return text;
}

void NgramIndex::readWords(const QString &text)
{
    m_wordsOfText.clear();
    const QChar *const end = text.constData() + text.size();
    for (const QChar *at = text.constData(); at != end;) {
        if (!isWordCharacter(*at)) {
            ++at;
            continue;
        }
        const QChar *const start = at;
        while (at != end && isWordCharacter(*at)) {
            ++at;
        }
        m_wordsOfText.push_back(wordNumber(start, static_cast<int>(at - start)));
    }
}

int NgramIndex::wordNumber(const QChar *word, int size)
{
    const QString raw = QString::fromRawData(word, size);
    const QString looked = m_caseSensitive ? raw : raw.toLower();
    const auto known = m_wordNumbers.constFind(looked);
    if (known != m_wordNumbers.constEnd()) {
        return *known;
    }
    // A copy of its own: the text goes, the word stays.
    const QString kept(looked.constData(), looked.size());
    const int number = static_cast<int>(m_words.size());
    m_words.push_back(kept);
    m_wordNumbers.insert(kept, number);
    return number;
}

/// The place of a sequence, or the empty one where it belongs.
NgramIndex::Slot &NgramIndex::slotOf(int prefix, int word)
{
    constexpr quint64 multiplier = 0x9E3779B97F4A7C15ULL;
    const quint64 key = static_cast<quint64>(static_cast<quint32>(prefix)) << 32 | static_cast<quint32>(word);
    const size_t mask = m_slots.size() - 1;
    quint64 mixed = key * multiplier;
    mixed ^= mixed >> 32;
    size_t at = static_cast<size_t>(mixed * multiplier >> 20) & mask;
    while (m_slots[at].number >= 0 && (m_slots[at].prefix != prefix || m_slots[at].word != word)) {
        at = (at + 1) & mask;
    }
    return m_slots[at];
}

NgramIndex::Slot &NgramIndex::following(int prefix, int word)
{
    Slot *slot = &slotOf(prefix, word);
    if (slot->number >= 0) {
        return *slot;
    }
    if (m_nodes.size() * 4 >= m_slots.size() * 3) {
        grow();
        slot = &slotOf(prefix, word);
    }
    *slot = {prefix, word, size(), 0};
    const int wordLength = m_words[static_cast<size_t>(word)].size();
    if (prefix < 0) {
        m_nodes.push_back({prefix, word, 1, wordLength});
    } else {
        m_nodes.push_back({prefix, word, wordCount(prefix) + 1, length(prefix) + 1 + wordLength});
    }
    return *slot;
}

void NgramIndex::grow()
{
    std::vector<Slot> before(m_slots.size() * 2);
    before.swap(m_slots);
    for (const Slot &slot : before) {
        if (slot.number >= 0) {
            slotOf(slot.prefix, slot.word) = slot;
        }
    }
}
