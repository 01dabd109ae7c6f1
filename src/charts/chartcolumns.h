#pragma once

#include "data/columnmemory.h"
#include "data/columntext.h"

class Dataset;

/// Which columns a chart draws, held by identity so that they survive renaming and reordering upstream. What a
/// document says of them is kept as text until the table upstream is there.
class ChartColumns
{
public:
    ColumnId x() const { return m_x; }
    const QList<ColumnId> &y() const { return m_y; }
    // A new choice wins over what a document said of that axis, and leaves the other axis alone. `upstream` is the
    // table that it was made for, null when none is known.
    void setX(ColumnId column, const Dataset *upstream);
    void setY(const QList<ColumnId> &columns, const Dataset *upstream);

    /// References as documents hold them, such as "3*0" and, for Y, several of them.
    void setStored(const QString &x, const QString &y);
    bool isPending() const { return m_xText.isWaiting() || m_yText.isWaiting(); }
    /// Turns pending references into columns of `upstream`; numbers beyond its columns are dropped.
    void resolve(const Dataset &upstream);
    /// The stored form against `upstream`. Without a table there it is the one last known.
    QString storedX(const Dataset *upstream) const;
    QString storedY(const Dataset *upstream) const;

    /// Lets the next reconnect() look for lost columns by their last names.
    void allowReconnect() { m_memory.allowReconnect(); }
    /// Follows renames and, once after allowReconnect(), finds lost columns by name.
    void reconnect(const Dataset &upstream, QStringList &warnings, QStringList &infos);
    void remap(const QHash<ColumnId, ColumnId> &map);

private:
    QList<ColumnOption> options();
    void keepTexts(const Dataset &upstream);

    ColumnId m_x;
    QList<ColumnId> m_y;
    ColumnText m_xText;
    ColumnText m_yText;
    ColumnMemory m_memory;
};
