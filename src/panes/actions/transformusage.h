#pragma once

#include "settings/settings.h"

#include <QSet>
#include <QStringList>

/// Which transforms a person adds: the last ones, and how often each, as the settings keep them.
class TransformUsage
{
public:
    static constexpr int mostRecent = 30;
    /// The lengths of the lists that are offered, longest first.
    static constexpr int lengths[] = {30, 25, 20, 15, 10};

    /// Reads the settings. Names that are none of `known` stay stored, and are in no list.
    explicit TransformUsage(const QSet<QString> &known);

    /// Counts one more and stores it.
    void record(const QString &typeName);
    /// The first `count` of those added last, newest first.
    QStringList lastUsed(int count) const { return knownRecent().mid(0, count); }
    /// The `count` added most often; those added equally often in alphabetical order.
    QStringList mostUsed(int count) const;
    int usedCount() const { return knownCounted().size(); }
    int recentCount() const { return knownRecent().size(); }

private:
    QStringList knownRecent() const;
    QStringList knownCounted() const;

    const QSet<QString> m_known;
    QStringList m_recent;
    SettingsCounts m_counts;
};
