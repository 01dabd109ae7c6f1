#pragma once

#include <QHash>
#include <QStringList>

/// What regular expressions may cost while a transform runs, and what they gave up. A match that takes more than its
/// limit counts as none. The first hard values of a run may take long; the more there are, the less each next one may
/// take, so that a run over millions of them ends. An expression that needs no more than a few steps for a character
/// never comes near any limit.
class RegexWork
{
public:
    /// Work is counted here while this lives; the innermost one counts.
    RegexWork();
    ~RegexWork();
    Q_DISABLE_COPY(RegexWork)

    /// Steps that the library may take for one match as things stand; the most when nothing is counted.
    static int limit();
    /// A value took more than the limit, or can't be read because it has half of a surrogate pair.
    static void noteTooHard(const QString &pattern, const QString &text);
    static void noteUnreadable(const QString &pattern, const QString &text);

    /// A line for each of the first patterns that gave up values, with the number of those and the first of them.
    QStringList warnings() const;

private:
    struct GivenUp
    {
        QString pattern;
        QString first;
        int count = 0;
    };
    using List = QList<GivenUp>;
    static void note(List &list, QHash<QString, int> &places, const QString &pattern, const QString &text);
    static QStringList lines(const List &list, const char *reason);

    static RegexWork *s_current;

    RegexWork *m_outer;
    int m_limit;
    int m_tooHardCount = 0;
    List m_tooHard;
    List m_unreadable;
    QHash<QString, int> m_tooHardPlaces;
    QHash<QString, int> m_unreadablePlaces;
};
