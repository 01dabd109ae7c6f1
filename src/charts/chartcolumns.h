#pragma once

#include "data/indexes.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

class Dataset;

/// Which columns a chart draws, held by identity so that they survive renaming and reordering upstream. What a
/// document says of them is kept as text until the table upstream is there.
class ChartColumns
{
public:
    ColumnId x() const { return m_x; }
    const QList<ColumnId> &y() const { return m_y; }
    // A new choice wins over what a document said of that axis, and leaves the other axis alone.
    void setX(ColumnId column);
    void setY(const QList<ColumnId> &columns);

    /// References as documents hold them, such as "3*0" and, for Y, several of them.
    void setStored(const QString &x, const QString &y);
    bool isPending() const { return m_xPending || m_yPending; }
    /// Turns pending references into columns of `upstream`; numbers beyond its columns are dropped.
    void resolve(const Dataset &upstream);
    /// The stored form against `upstream`. Without a table there it is the one last known.
    QString storedX(const Dataset *upstream) const;
    QString storedY(const Dataset *upstream) const;

    /// Lets the next reconnect() look for lost columns by their last names.
    void allowReconnect() { m_canReconnect = true; }
    /// Follows renames and, once after allowReconnect(), finds lost columns by name.
    void reconnect(const Dataset &upstream, QStringList &warnings, QStringList &infos);
    void remap(const QHash<ColumnId, ColumnId> &map);

private:
    ColumnId reconnected(ColumnId id, const Dataset &upstream, const QString &option, QHash<ColumnId, QString> &names,
        QStringList &warnings, QStringList &infos) const;
    void remember(const Dataset &upstream);

    ColumnId m_x;
    QList<ColumnId> m_y;
    QHash<ColumnId, QString> m_lastNames;
    QString m_storedX;
    QString m_storedY;
    bool m_xPending = false;
    bool m_yPending = false;
    bool m_canReconnect = false;
};
