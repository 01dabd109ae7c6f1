#include "transforms/analysis/profiletable.h"

#include "data/dataset.h"
#include "data/values.h"

namespace {

constexpr QLatin1String notAvailable("N/A");

/// Dates stand before texts here, and only when they are looked for.
QVector<ProfileLine> linesOf(bool withDates, bool withStatistics)
{
    QVector<ProfileLine> lines = exploredLines(withStatistics);
    lines.removeAll(ProfileLine::Date);
    if (withDates) {
        lines.insert(lines.indexOf(ProfileLine::Text), ProfileLine::Date);
    } else {
        lines.resize(lines.indexOf(ProfileLine::DateFormat));
    }
    return lines;
}

} // namespace

ProfileTable::ProfileTable(bool withDates, bool withStatistics)
    : m_lines(linesOf(withDates, withStatistics))
    , m_withStatistics(withStatistics)
    , m_dateFormats(withDates ? dateFormats() : QStringList())
    , m_writer(notAvailable, false)
{
}

QStringList ProfileTable::metrics() const
{
    QStringList names;
    for (ProfileLine line : m_lines) {
        names.append(profileLabel(line));
    }
    return names << QStringLiteral("Most frequent");
}

QStringList ProfileTable::texts(const Dataset &dataset, ColumnIndex column) const
{
    ColumnProfile profile;
    dataset.columnProfile(profile, column, m_dateFormats, m_withStatistics);
    QStringList texts;
    for (ProfileLine line : m_lines) {
        texts.append(m_writer.text(line, profile));
    }
    return texts << mostFrequent(profile, dataset.column(column));
}

QString ProfileTable::mostFrequent(const ColumnProfile &profile, const CellColumn &column) const
{
    const int value = profile.m_values.mostFrequent();
    if (value < 0) {
        return notAvailable;
    }
    const QString text = column.at(profile.m_values.firstRow(value)).text();
    return text.isEmpty() ? QStringLiteral("(empty)") : text;
}
