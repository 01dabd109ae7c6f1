#pragma once

#include <QList>
#include <QPointF>
#include <QString>

class ColumnId;
class Dataset;

/// What a transform and its options may know of the item upstream: its table and where it stands. Items of the canvas
/// implement it; so do test doubles.
class DataSource
{
public:
    virtual ~DataSource() = default;

    virtual int id() const = 0;
    virtual const Dataset &datasetConst() const = 0;
    /// True when the table is that of a finished run.
    virtual bool isReady() const = 0;
    /// Position on the canvas; the order of inputs is from top to bottom.
    virtual QPointF sourcePosition() const = 0;
    /// Names of the columns with these ids, at most `maxNames` and then "...".
    virtual QString columnsDescription(const QList<ColumnId> &ids, int maxNames) const = 0;
};
