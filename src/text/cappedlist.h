#pragma once

#include <QString>
#include <QStringList>
#include <type_traits>

/// Gathers the first few of many texts, for a list that ends with "+ 7 others".
class CappedList
{
public:
    static constexpr int usualLimit = 5;

    CappedList() = default;
    /// Keeps the first `limit` texts and counts the others.
    explicit CappedList(int limit)
        : m_limit(limit)
    {
    }

    /// True while a further text would be kept, so that it needn't be made otherwise.
    bool wantsText() const { return m_texts.size() < m_limit; }
    void add(const QString &text)
    {
        ++m_count;
        if (wantsText()) {
            m_texts.append(text);
        }
    }
    /// Calls `makeText` only for a text that is kept.
    template<class MakeText, class = std::enable_if_t<std::is_invocable_v<MakeText>>>
    void add(MakeText makeText)
    {
        if (wantsText()) {
            m_texts.append(makeText());
        }
        ++m_count;
    }
    /// Counts `count` more without texts of their own.
    void addHidden(qint64 count) { m_count += count; }
    /// Forgets all but the first `count`.
    void truncate(qint64 count);

    qint64 count() const { return m_count; }
    bool isEmpty() const { return m_count == 0; }
    /// Those that were kept.
    const QStringList &texts() const { return m_texts; }
    /// How many weren't kept.
    qint64 others() const { return m_count - m_texts.size(); }
    /// "+ %1 %2" with the number of the others, grouped as the locale has it, and `one` or `many`; empty without
    /// others.
    QString othersLine(const char *one = "other", const char *many = "others") const;
    /// The texts and, behind them, the line of the others if there are any.
    QStringList lines(const char *one = "other", const char *many = "others") const;

private:
    int m_limit = usualLimit;
    qint64 m_count = 0;
    QStringList m_texts;
};
