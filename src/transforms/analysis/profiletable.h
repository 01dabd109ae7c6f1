#pragma once

#include "data/cellcolumn.h"
#include "data/indexes.h"
#include "data/profilelines.h"

#include <QStringList>

class Dataset;

/// Writes the profile of a column as a column of texts, one a metric.
class ProfileTable
{
public:
    ProfileTable(bool withDates, bool withStatistics);

    /// The names of the metrics, in their order.
    QStringList metrics() const;
    /// The texts of the metrics for one column, in the same order.
    QStringList texts(const Dataset &dataset, ColumnIndex column) const;

private:
    QString mostFrequent(const ColumnProfile &profile, const CellColumn &column) const;

    QVector<ProfileLine> m_lines;
    bool m_withStatistics;
    QStringList m_dateFormats;
    ProfileWriter m_writer;
};
