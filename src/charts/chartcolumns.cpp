#include "charts/chartcolumns.h"

#include "data/dataset.h"

namespace {

constexpr QChar separator(0x1F);

ColumnId columnOfReference(const QString &reference, const Dataset &upstream)
{
    bool ok = false;
    const int number = reference.section(QLatin1Char('*'), 0, 0).toInt(&ok);
    if (!ok || number < 1 || number > upstream.columnCount()) {
        return ColumnId();
    }
    return upstream.columnId(toIndex(ColumnNumber(number)));
}

QString referenceOf(ColumnId id, const Dataset &upstream)
{
    const ColumnIndex column = id.isNull() ? ColumnIndex() : upstream.columnIndexOfId(id);
    return column.isValid() ? QString::number(toNumber(column).toInt()) + QStringLiteral("*0") : QString();
}

QStringList splitReferences(const QString &stored)
{
    const QChar by = stored.contains(separator) ? separator : QLatin1Char('^');
    return stored.split(by, Qt::SkipEmptyParts);
}

} // namespace

void ChartColumns::setX(ColumnId column)
{
    m_x = column;
    m_xPending = false;
    m_storedX.clear();
}

void ChartColumns::setY(const QList<ColumnId> &columns)
{
    m_y = columns;
    m_yPending = false;
    m_storedY.clear();
}

void ChartColumns::setStored(const QString &x, const QString &y)
{
    m_storedX = x;
    m_storedY = y;
    m_xPending = m_yPending = true;
}

void ChartColumns::resolve(const Dataset &upstream)
{
    if (!isPending() || !upstream.hasColumns()) {
        return;
    }
    if (m_xPending) {
        m_x = columnOfReference(m_storedX, upstream);
    }
    if (m_yPending) {
        m_y.clear();
        const QStringList references = splitReferences(m_storedY);
        for (const QString &reference : references) {
            const ColumnId id = columnOfReference(reference, upstream);
            if (!id.isNull()) {
                m_y.append(id);
            }
        }
    }
    m_xPending = m_yPending = false;
    remember(upstream);
}

QString ChartColumns::storedX(const Dataset *upstream) const
{
    if (m_xPending || !upstream || !upstream->hasColumns()) {
        return m_storedX;
    }
    return referenceOf(m_x, *upstream);
}

QString ChartColumns::storedY(const Dataset *upstream) const
{
    if (m_yPending || !upstream || !upstream->hasColumns()) {
        return m_storedY;
    }
    QStringList references;
    for (ColumnId id : m_y) {
        const QString reference = referenceOf(id, *upstream);
        if (!reference.isEmpty()) {
            references.append(reference);
        }
    }
    return references.join(separator);
}

void ChartColumns::reconnect(const Dataset &upstream, QStringList &warnings, QStringList &infos)
{
    QHash<ColumnId, QString> names;
    m_x = reconnected(m_x, upstream, QStringLiteral("X axis data"), names, warnings, infos);
    for (ColumnId &id : m_y) {
        id = reconnected(id, upstream, QStringLiteral("Y axis data"), names, warnings, infos);
    }
    m_lastNames = names;
    m_canReconnect = false;
    remember(upstream);
}

ColumnId ChartColumns::reconnected(ColumnId id, const Dataset &upstream, const QString &option,
    QHash<ColumnId, QString> &names, QStringList &warnings, QStringList &infos) const
{
    if (id.isNull()) {
        return id;
    }
    const ColumnIndex column = upstream.columnIndexOfId(id);
    const QString lastName = m_lastNames.value(id);
    if (column.isValid()) {
        names.insert(id, upstream.columnName(column));
        return id;
    }
    names.insert(id, lastName);
    if (!m_canReconnect || lastName.isEmpty()) {
        return id;
    }
    const ColumnIndex found = upstream.columnIndexOfName(lastName);
    if (!found.isValid()) {
        warnings.append(QStringLiteral("Cannot reconnect to column '%1' for '%2'").arg(lastName, option));
        return id;
    }
    infos.append(QStringLiteral("Reconnected to column '%1' for '%2'").arg(lastName, option));
    const ColumnId newId = upstream.columnId(found);
    names.insert(newId, lastName);
    return newId;
}

void ChartColumns::remap(const QHash<ColumnId, ColumnId> &map)
{
    m_x = map.value(m_x, m_x);
    for (ColumnId &id : m_y) {
        id = map.value(id, id);
    }
    QHash<ColumnId, QString> names;
    for (auto it = m_lastNames.cbegin(); it != m_lastNames.cend(); ++it) {
        names.insert(map.value(it.key(), it.key()), it.value());
    }
    m_lastNames = names;
}

/// Keeps the stored form and the names for the time when the table upstream is gone.
void ChartColumns::remember(const Dataset &upstream)
{
    if (!upstream.hasColumns()) {
        return;
    }
    m_storedX = storedX(&upstream);
    m_storedY = storedY(&upstream);
    const QList<ColumnId> ids = QList<ColumnId>(m_y) << m_x;
    for (ColumnId id : ids) {
        const ColumnIndex column = upstream.columnIndexOfId(id);
        if (column.isValid()) {
            m_lastNames.insert(id, upstream.columnName(column));
        }
    }
}
