#include "panes/actions/transformusage.h"

#include <algorithm>

namespace {

QStringList withoutUnknown(QStringList names, const QSet<QString> &known)
{
    names.erase(std::remove_if(names.begin(), names.end(), [&](const QString &name) { return !known.contains(name); }),
        names.end());
    return names;
}

} // namespace

TransformUsage::TransformUsage(const QSet<QString> &known)
    : m_known(known)
    , m_recent(Settings::current().recentTransformsAdded().mid(0, mostRecent))
    , m_counts(Settings::current().allTransformsAddedCount())
{
}

void TransformUsage::record(const QString &typeName)
{
    m_recent.removeAll(typeName);
    m_recent.prepend(typeName);
    m_recent = m_recent.mid(0, mostRecent);
    ++m_counts[typeName];
    Settings::current().setRecentTransformsAdded(m_recent);
    Settings::current().setAllTransformsAddedCount(m_counts);
}

QStringList TransformUsage::knownRecent() const
{
    return withoutUnknown(m_recent, m_known);
}

QStringList TransformUsage::knownCounted() const
{
    return withoutUnknown(m_counts.keys(), m_known);
}

QStringList TransformUsage::mostUsed(int count) const
{
    QStringList names = knownCounted();
    std::sort(names.begin(), names.end(), [this](const QString &a, const QString &b) {
        return m_counts[a] != m_counts[b] ? m_counts[a] > m_counts[b] : a < b;
    });
    return names.mid(0, count);
}
