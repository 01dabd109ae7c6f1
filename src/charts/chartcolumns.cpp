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

QList<ColumnId> columnsOfReferences(const QString &references, const Dataset &upstream)
{
    const QChar by = references.contains(separator) ? separator : QLatin1Char('^');
    QList<ColumnId> ids;
    for (const QString &reference : references.split(by, Qt::SkipEmptyParts)) {
        const ColumnId id = columnOfReference(reference, upstream);
        if (!id.isNull()) {
            ids.append(id);
        }
    }
    return ids;
}

QString referencesOf(const QList<ColumnId> &ids, const Dataset &upstream)
{
    QStringList references;
    for (const ColumnId id : ids) {
        const QString reference = referenceOf(id, upstream);
        if (!reference.isEmpty()) {
            references.append(reference);
        }
    }
    return references.join(separator);
}

bool hasTable(const Dataset *upstream)
{
    return upstream && upstream->hasColumns();
}

} // namespace

void ChartColumns::setX(ColumnId column, const Dataset *upstream)
{
    m_x = column;
    m_xText.keep(hasTable(upstream) ? referenceOf(column, *upstream) : QString());
}

void ChartColumns::setY(const QList<ColumnId> &columns, const Dataset *upstream)
{
    m_y = columns;
    m_yText.keep(hasTable(upstream) ? referencesOf(columns, *upstream) : QString());
}

void ChartColumns::setStored(const QString &x, const QString &y)
{
    m_xText.wait(x);
    m_yText.wait(y);
}

void ChartColumns::resolve(const Dataset &upstream)
{
    if (!isPending() || !upstream.hasColumns()) {
        return;
    }
    if (m_xText.isWaiting()) {
        m_x = columnOfReference(m_xText.take(), upstream);
    }
    if (m_yText.isWaiting()) {
        m_y = columnsOfReferences(m_yText.take(), upstream);
    }
    m_memory.learn(upstream, options());
    keepTexts(upstream);
}

QString ChartColumns::storedX(const Dataset *upstream) const
{
    const bool asKept = m_xText.isWaiting() || !hasTable(upstream);
    return asKept ? m_xText.text() : referenceOf(m_x, *upstream);
}

QString ChartColumns::storedY(const Dataset *upstream) const
{
    const bool asKept = m_yText.isWaiting() || !hasTable(upstream);
    return asKept ? m_yText.text() : referencesOf(m_y, *upstream);
}

QList<ColumnOption> ChartColumns::options()
{
    return {{QStringLiteral("X axis data"), m_x}, {QStringLiteral("Y axis data"), m_y}};
}

void ChartColumns::reconnect(const Dataset &upstream, QStringList &warnings, QStringList &infos)
{
    m_memory.reconnect(options(), {upstream, warnings, infos});
    keepTexts(upstream);
}

void ChartColumns::keepTexts(const Dataset &upstream)
{
    if (!isPending() && upstream.hasColumns()) {
        m_xText.keep(storedX(&upstream));
        m_yText.keep(storedY(&upstream));
    }
}

void ChartColumns::remap(const QHash<ColumnId, ColumnId> &map)
{
    m_memory.remap(map, options());
}
