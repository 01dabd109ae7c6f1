#include "graph/flowlayout.h"

#include <QSet>
#include <QStringList>
#include <gtest/gtest.h>
#include <random>

namespace {

using FlowLayout::Item;

/// Items from their inputs, such as {"", "", "0 1"}.
QVector<Item> itemsOf(const QStringList &inputs)
{
    QVector<Item> items;
    for (const QString &numbers : inputs) {
        Item item;
        for (const QString &number : numbers.split(' ', Qt::SkipEmptyParts)) {
            item.inputs.append(number.toInt());
        }
        items.append(item);
    }
    return items;
}

/// The cells as a picture: rows parted by "/", a letter an item, "." for an empty cell.
QString pictureOf(const QVector<QPoint> &cells)
{
    QStringList rows;
    for (int i = 0; i < cells.size(); ++i) {
        while (rows.size() <= cells[i].y()) {
            rows.append(QString());
        }
        QString &row = rows[cells[i].y()];
        row = row.leftJustified(cells[i].x() + 1, '.');
        EXPECT_EQ(row[cells[i].x()], '.') << "two items share a cell";
        row[cells[i].x()] = QChar('a' + i);
    }
    return rows.join('/');
}

} // namespace

TEST(FlowLayout, PutsFlowsInLayers)
{
    const struct
    {
        const char *shows;
        QStringList inputs;
        const char *picture;
    } cases[] = {
        {"a chain stands in one row", {"", "0", "1"}, "abc"},
        {"a join is level with its first input", {"", "", "0 1"}, "ac/b"},
        {"branches spread round what they come from", {"", "0", "0", "0"}, ".b/ac/.d"},
        {"a connection over a layer has a row of its own", {"", "0", "0 1"}, "a.c/.b"},
        {"a lower chain joins from below", {"", "0", "1", "", "2 3"}, "abce/d"},
        {"crossings are taken out", {"", "", "1", "0"}, "ad/bc"},
        {"unless the order of inputs asks for them", {"", "", "1", "0", "2 3"}, "bce/ad"},
        {"flows follow each other, single items come last", {"", "", "1", ""}, "bc/ad"},
        {"many single items stand side by side", {"", "", "", "", ""}, "abcd/e"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.shows);
        EXPECT_EQ(pictureOf(FlowLayout::arrange(itemsOf(c.inputs))), c.picture);
    }
}

TEST(FlowLayout, LeavesRoomForNotes)
{
    QVector<Item> items = itemsOf({"", "", "0 1"});
    items[1].above = 1;
    items[0].right = 1;
    EXPECT_EQ(pictureOf(FlowLayout::arrange(items)), "a.c//b");
}

TEST(FlowLayout, KeepsWhatMustHoldInAnyFlow)
{
    std::mt19937 random(20261124);
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        QVector<Item> items(2 + static_cast<int>(random() % 30));
        // A connection leads from an earlier to a later place of a random order, so that there is no circle.
        QVector<int> order(items.size());
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin(), order.end(), random);
        for (int place = 1; place < order.size(); ++place) {
            QSet<int> inputs;
            for (int count = static_cast<int>(random() % 4); count > 0; --count) {
                inputs.insert(order[static_cast<int>(random() % static_cast<unsigned>(place))]);
            }
            QVector<int> sorted(inputs.begin(), inputs.end());
            std::sort(sorted.begin(), sorted.end());
            items[order[place]].inputs = sorted;
        }
        const QVector<QPoint> cells = FlowLayout::arrange(items);
        QSet<QPair<int, int>> taken;
        for (int i = 0; i < items.size(); ++i) {
            taken.insert({cells[i].x(), cells[i].y()});
            EXPECT_GE(std::min(cells[i].x(), cells[i].y()), 0);
            for (int n = 0; n < items[i].inputs.size(); ++n) {
                const QPoint input = cells[items[i].inputs[n]];
                EXPECT_LT(input.x(), cells[i].x()) << "connections run from left to right";
                if (n > 0) {
                    EXPECT_LT(cells[items[i].inputs[n - 1]].y(), input.y()) << "inputs keep their order";
                }
            }
        }
        EXPECT_EQ(taken.size(), items.size());
    }
}
