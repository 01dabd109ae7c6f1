#include "data/columnmemory.h"

#include "data/dataset.h"

void ColumnMemory::learn(const Dataset &upstream, const QList<ColumnOption> &options)
{
    QHash<ColumnId, QString> names;
    for (const ColumnOption &option : options) {
        option.changeColumns([&](ColumnId &id) {
            if (!id.isNull()) {
                const ColumnIndex column = upstream.columnIndexOfId(id);
                names.insert(id, column.isValid() ? upstream.columnName(column) : lastName(id));
            }
            return false;
        });
    }
    m_names = names;
}

void ColumnMemory::reconnect(const QList<ColumnOption> &options, const Search &search)
{
    for (const ColumnOption &option : options) {
        option.changeColumns([&](ColumnId &id) {
            ColumnId newId;
            QString name;
            const bool isFound = reconnectColumn(id, lastName(id), option.name, search, newId, name);
            if (isFound) {
                id = newId;
            }
            return isFound;
        });
    }
    m_canReconnect = false;
    learn(search.upstream, options);
}

bool ColumnMemory::reconnectColumn(ColumnId id, const QString &lastName, const QString &optionName,
    const Search &search, ColumnId &newId, QString &currentName) const
{
    currentName = lastName;
    if (id.isNull()) {
        return false;
    }
    const ColumnIndex column = search.upstream.columnIndexOfId(id);
    if (column.isValid()) {
        currentName = search.upstream.columnName(column);
        return false;
    }
    if (!m_canReconnect || lastName.isEmpty()) {
        return false;
    }
    const ColumnIndex found = search.upstream.columnIndexOfName(lastName);
    if (!found.isValid()) {
        search.warnings.append(QStringLiteral("Cannot reconnect to column '%1' for '%2'").arg(lastName, optionName));
        return false;
    }
    newId = search.upstream.columnId(found);
    search.infos.append(QStringLiteral("Reconnected to column '%1' for '%2'").arg(lastName, optionName));
    return true;
}

void ColumnMemory::remap(const QHash<ColumnId, ColumnId> &map, const QList<ColumnOption> &options)
{
    const ColumnChange change = [&map](ColumnId &id) {
        const auto it = map.constFind(id);
        if (it == map.cend()) {
            return false;
        }
        id = it.value();
        return true;
    };
    for (const ColumnOption &option : options) {
        option.changeColumns(change);
    }
    changeColumnsIn(m_names, change);
}
