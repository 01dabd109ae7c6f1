#pragma once

#include <QHash>
#include <QString>
#include <vector>

/// Numbers the sequences of words that occur in texts. A word is a run of letters, digits and apostrophes. Sequences
/// are kept as a tree of words, so that a long one costs no more than a short one.
class NgramIndex
{
public:
    /// Sequences of `least` to `most` words; unless `caseSensitive`, words are taken in lower case.
    NgramIndex(int least, int most, bool caseSensitive);

    /// The numbers of the different sequences in `text`; holds until the next call.
    const std::vector<int> &ngramsOf(const QString &text);
    /// Numbers run from 0 to below this; some stand for the beginnings of sequences and are too short themselves.
    int size() const { return static_cast<int>(m_nodes.size()); }
    bool isNgram(int number) const { return wordCount(number) >= m_least; }
    int wordCount(int number) const { return m_nodes[static_cast<size_t>(number)].words; }
    /// Of the text, in UTF-16 units.
    int length(int number) const { return m_nodes[static_cast<size_t>(number)].length; }
    /// The words, joined by blanks.
    QString text(int number) const;

private:
    struct Node
    {
        int prefix; ///< the sequence without its last word, or -1
        int word;
        int words;
        int length;
    };
    /// A place in the hash table. It holds all that a look-up needs, since a second place in memory would double the
    /// time.
    struct Slot
    {
        int prefix;
        int word;
        int number = -1;
        int lastText; ///< the text in which it was seen last
    };
    void readWords(const QString &text);
    int wordNumber(const QChar *word, int size);
    Slot &following(int prefix, int word);
    Slot &slotOf(int prefix, int word);
    void grow();

    const int m_least;
    const int m_most;
    const bool m_caseSensitive;
    QHash<QString, int> m_wordNumbers;
    std::vector<QString> m_words;
    std::vector<Node> m_nodes;
    std::vector<Slot> m_slots; ///< a power of two, at most three quarters used
    std::vector<int> m_wordsOfText;
    std::vector<int> m_found;
    int m_textCount = 0;
};
