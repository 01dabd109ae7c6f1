#include "support/grid.h"
#include "support/runon.h"
#include "transforms/merge/loosenames.h"
#include "transforms/other/matchingrows.h"

#include <QRandomGenerator>
#include <QSet>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

// Algorithms whose order matters count their steps here, since times say little on a busy machine.

namespace {

QStringList numbered(int count, const QString &prefix)
{
    QStringList list;
    for (int i = 0; i < count; ++i) {
        list.append(prefix + QString::number(i));
    }
    return list;
}

QStringList repeated(int count, const QString &name)
{
    return QVector<QString>(count, name).toList();
}

qint64 stepsToAlign(const QStringList &top, const QStringList &bottom)
{
    LooseNames loose(top);
    for (const QString &name : bottom) {
        loose.take(name);
    }
    return loose.lookedAt();
}

QStringList backwards(QStringList list)
{
    std::reverse(list.begin(), list.end());
    return list;
}

/// A table of `rows` rows, every second of which is to be filled by the others.
qint64 stepsToMatch(int rows, const std::function<QString(int)> &key, const std::function<QString(int)> &group)
{
    Dataset dataset;
    dataset.setColumnCount(2);
    std::vector<int> filled;
    for (int row = 0; row < rows; ++row) {
        dataset.appendRow({key(row), group(row)});
        if (row % 2 == 0) {
            filled.push_back(row);
        }
    }
    MatchingRows matches(dataset, {ColumnIndex(0), ColumnIndex(1)}, true, filled, MatchingRows::Best);
    QSet<int> known;
    qint64 found = 0;
    for (int row = 1; row < rows; row += 2) {
        const int match = matches.matchOf(row);
        if (!known.contains(match)) {
            known.insert(match);
            found += static_cast<qint64>(matches.rowsFor(row).size());
        }
    }
    return matches.lookedAt() + found;
}

/// How many arenas the columns of a wide table keep after each got texts of its own and they were moved sideways.
qint64 arenasKept(int columns, const QString &kind, const QString &direction)
{
    Dataset wide;
    wide.setColumnCount(columns);
    wide.setRowCount(1);
    QVariantList all;
    for (int i = 0; i < columns; ++i) {
        Dataset one = column(i % 2 ? QString("a text of column %1").arg(i) : QString());
        wide.setColumn(ColumnIndex(i), one.column(ColumnIndex(0)));
        all.append(i + 1);
    }
    const Dataset result = runOn(kind, {{"Columns", all}, {"Direction", direction}}, wide);
    qint64 kept = 0;
    for (int i = 0; i < columns; ++i) {
        kept += result.column(ColumnIndex(i)).arenas.size();
    }
    return kept;
}

TEST(Growth, StaysNearLinear)
{
    struct Case
    {
        const char *what;
        std::function<qint64(int)> steps;
    };
    const auto number = [](int row) { return QString::number(row); };
    const Case cases[] = {
        {"names in another order", [](int n) { return stepsToAlign(numbered(n, "c"), backwards(numbered(n, "c"))); }},
        {"names in another case", [](int n) { return stepsToAlign(numbered(n, "c"), backwards(numbered(n, " C"))); }},
        {"equal names", [](int n) { return stepsToAlign(repeated(n, "same"), repeated(n, "same")); }},
        {"names that are alike once loosened", [](int n) { return stepsToAlign(repeated(n, "a"), repeated(n, "A ")); }},
        {"keys that match nothing", [&](int n) { return stepsToMatch(n, number, number); }},
        {"keys that match by a group",
            [&](int n) { return stepsToMatch(n, number, [](int row) { return QString::number(row / 2 % 20); }); }},
        {"texts filled to the right", [](int n) { return arenasKept(n, "Fill", "Right"); }},
        {"texts filled to the left", [](int n) { return arenasKept(n, "Fill", "Left"); }},
        {"texts slid to the left", [](int n) { return arenasKept(n, "Slide", "Left"); }},
        {"texts slid to the right", [](int n) { return arenasKept(n, "Slide", "Right"); }},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        constexpr int small = 400;
        const qint64 few = c.steps(small);
        EXPECT_GE(few, small / 2) << "the steps are counted";
        EXPECT_LE(c.steps(4 * small), 5 * few);
    }
}

TEST(MatchingRows, FindsTheRowsThatMatchInTheMostColumns)
{
    QRandomGenerator random(5);
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        const int columns = 1 + random.bounded(4);
        Dataset dataset;
        dataset.setColumnCount(columns);
        std::vector<int> filled;
        QVector<ColumnIndex> keys;
        for (int i = 0; i < columns; ++i) {
            keys.append(ColumnIndex(i));
        }
        for (int row = 0; row < 60; ++row) {
            QStringList values;
            for (int i = 0; i < columns; ++i) {
                values.append(QString::number(random.bounded(2 + 6 * i)));
            }
            dataset.appendRow(values);
            if (random.bounded(2) == 0) {
                filled.push_back(row);
            }
        }
        MatchingRows matches(dataset, keys, true, filled, MatchingRows::Best);
        QHash<int, std::vector<int>> byMatch;
        for (int row = 0; row < 60; ++row) {
            int most = 0;
            std::vector<int> best = filled;
            for (const int other : filled) {
                int same = 0;
                for (const ColumnIndex key : keys) {
                    same += dataset.value(RowIndex(row), key) == dataset.value(RowIndex(other), key);
                }
                if (same > most) {
                    most = same;
                    best.clear();
                }
                if (same == most && most > 0) {
                    best.push_back(other);
                }
            }
            ASSERT_EQ(matches.rowsFor(row), best);
            const int match = matches.matchOf(row);
            ASSERT_EQ(byMatch.value(match, best), best) << "rows with the same number find the same";
            byMatch.insert(match, best);
        }
    }
}

} // namespace
