#pragma once

#include "settings/choices.h"

#include <QStringList>
#include <QVector>

/// The column names of several tables, compared by name or by position: rows of a table with a cell for each of them.
class NamesComparison
{
public:
    struct Row
    {
        QString title;     ///< a name, or a position from 1
        QStringList cells; ///< by table: the positions of that name, or the name at that position; empty for none
        bool isDifferent = false;
    };

    /// `names` has the column names of each table. Names are in alphabetical order.
    NamesComparison(const QVector<QStringList> &names, HeaderPairing pairing);

    QVector<Row> rows(ComparedPairs which) const;
    int differenceCount() const;
    /// How many columns each table has.
    const Row &columnCounts() const { return m_columnCounts; }

private:
    void compareByName(const QVector<QStringList> &names);
    void compareByPosition(const QVector<QStringList> &names);
    static Row newRow(const QString &title, const QStringList &cells);

    QVector<Row> m_rows;
    Row m_columnCounts;
};
