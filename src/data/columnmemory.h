#pragma once

#include "data/columnwalk.h"

#include <QString>
#include <QStringList>

class Dataset;

/// An option as ColumnMemory sees it: what messages call it, and how to get at the columns that its value names.
struct ColumnOption
{
    /// For a value that changeColumnsIn() knows.
    template<class Value>
    ColumnOption(const QString &optionName, Value &value)
        : name(optionName)
        , changeColumns([&value](const ColumnChange &change) { return changeColumnsIn(value, change); })
    {
    }
    ColumnOption(const QString &optionName, std::function<bool(const ColumnChange &)> changeAll)
        : name(optionName)
        , changeColumns(std::move(changeAll))
    {
    }

    QString name;
    std::function<bool(const ColumnChange &)> changeColumns;
};

/// What options remember of the columns that they name by id: their last names, by which columns that are lost are
/// found again, once after each new connection.
class ColumnMemory
{
public:
    /// Where a search for lost columns goes, and what came of it.
    struct Search
    {
        const Dataset &upstream;
        QStringList &warnings;
        QStringList &infos;
    };

    /// Empty for a column that was never seen.
    QString lastName(ColumnId id) const { return m_names.value(id); }
    /// Lets the next reconnect() look for lost columns by name.
    void allowReconnect() { m_canReconnect = true; }
    /// Takes the names of all columns that are there, and drops those that no option names any more.
    void learn(const Dataset &upstream, const QList<ColumnOption> &options);
    /// Learns the names and, once after allowReconnect(), puts columns of the last names in the place of those that are
    /// lost. The first of columns with equal names is taken. What isn't found stays, for a later connection.
    void reconnect(const QList<ColumnOption> &options, const Search &search);
    /// The search for one column: true when `id` is lost and `newId` is that of the column with its last name.
    /// `currentName` is the name that `id` has now or had last.
    bool reconnectColumn(ColumnId id, const QString &lastName, const QString &optionName, const Search &search,
        ColumnId &newId, QString &currentName) const;
    /// Replaces ids in the options and here; those that `map` lacks stay.
    void remap(const QHash<ColumnId, ColumnId> &map, const QList<ColumnOption> &options);

private:
    QHash<ColumnId, QString> m_names;
    bool m_canReconnect = false;
};
