#include "panes/explore/namescomparison.h"

#include "data/values.h"

#include <QHash>
#include <algorithm>

NamesComparison::NamesComparison(const QVector<QStringList> &names, HeaderPairing pairing)
{
    QStringList counts;
    for (const QStringList &ofTable : names) {
        counts.append(formatInteger(ofTable.size(), true));
    }
    m_columnCounts = newRow(QStringLiteral("Column Count"), counts);
    pairing == HeaderPairing::ColumnName ? compareByName(names) : compareByPosition(names);
}

NamesComparison::Row NamesComparison::newRow(const QString &title, const QStringList &cells)
{
    const bool isDifferent = std::any_of(
        cells.cbegin(), cells.cend(), [&cells](const QString &cell) { return cell != cells.constFirst(); });
    return {title, cells, isDifferent};
}

void NamesComparison::compareByName(const QVector<QStringList> &names)
{
    QHash<QString, int> rowOfName;
    QVector<QPair<QString, QStringList>> found;
    for (int table = 0; table < names.size(); ++table) {
        for (int column = 0; column < names.at(table).size(); ++column) {
            const QString &name = names.at(table).at(column);
            auto row = rowOfName.find(name);
            if (row == rowOfName.end()) {
                row = rowOfName.insert(name, found.size());
                QStringList cells;
                cells.reserve(names.size());
                for (int i = 0; i < names.size(); ++i) {
                    cells.append(QString());
                }
                found.append({name, cells});
            }
            QString &positions = found[*row].second[table];
            positions += (positions.isEmpty() ? QString() : QStringLiteral(", ")) + QString::number(column + 1);
        }
    }
    std::sort(found.begin(), found.end(), [](const auto &a, const auto &b) {
        const int order = a.first.compare(b.first, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a.first < b.first;
    });
    m_rows.reserve(found.size());
    for (const auto &row : qAsConst(found)) {
        m_rows.append(newRow(row.first, row.second));
    }
}

void NamesComparison::compareByPosition(const QVector<QStringList> &names)
{
    int most = 0;
    for (const QStringList &ofTable : names) {
        most = qMax(most, ofTable.size());
    }
    m_rows.reserve(most);
    for (int column = 0; column < most; ++column) {
        QStringList cells;
        bool isMissing = false;
        for (const QStringList &ofTable : names) {
            cells.append(ofTable.value(column));
            isMissing |= column >= ofTable.size();
        }
        Row row = newRow(QString::number(column + 1), cells);
        // A column with an empty name is still one.
        row.isDifferent |= isMissing;
        m_rows.append(row);
    }
}

QVector<NamesComparison::Row> NamesComparison::rows(ComparedPairs which) const
{
    if (which == ComparedPairs::All) {
        return m_rows;
    }
    QVector<Row> rows;
    std::copy_if(m_rows.cbegin(), m_rows.cend(), std::back_inserter(rows),
        [which](const Row &row) { return row.isDifferent == (which == ComparedPairs::OnlyDifferences); });
    return rows;
}

int NamesComparison::differenceCount() const
{
    return static_cast<int>(
        std::count_if(m_rows.cbegin(), m_rows.cend(), [](const Row &row) { return row.isDifferent; }));
}
