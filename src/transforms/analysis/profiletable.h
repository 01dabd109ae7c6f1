#pragma once

#include "data/cellcolumn.h"
#include "data/indexes.h"
#include "data/realwriter.h"

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
    bool m_withDates;
    bool m_withStatistics;
    QStringList m_dateFormats;
    RealWriter m_writer;
};
