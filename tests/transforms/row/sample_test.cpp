#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/parameter.h"
#include "transforms/row/remainingrows.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>

namespace {

Dataset numbers(int count)
{
    Dataset dataset = column(QStringList());
    for (int i = 0; i < count; ++i) {
        dataset.appendRow({QString::number(i)});
    }
    return dataset;
}

QList<int> sampled(int count, const OptionSettings &options)
{
    QList<int> rows;
    for (const QString &row : runOn("Sample", options, numbers(count)).columnValues(ColumnIndex(0))) {
        rows.append(row.toInt());
    }
    return rows;
}

TEST(TransformSample, TakesRowsByPlace)
{
    const struct
    {
        const char *what;
        int count;
        int rows;
        const char *spread;
        QList<int> taken;
        QString text;
    } cases[] = {
        {"one of five is the middle", 5, 1, "Evenly", {2}, "1 sampled, 4 unsampled"},
        {"two of six", 6, 2, "Evenly", {2, 4}, "2 sampled, 4 unsampled"},
        {"all but one", 4, 3, "Evenly", {1, 2, 3}, "3 sampled, 1 unsampled"},
        {"top", 4, 3, "Top", {0, 1, 2}, "3 sampled, 1 unsampled"},
        {"bottom", 4, 3, "Bottom", {1, 2, 3}, "3 sampled, 1 unsampled"},
        {"none", 4, 0, "Bottom", {}, "0 sampled, 4 unsampled"},
        {"as many as there are", 3, 3, "Evenly", {0, 1, 2}, "No changes"},
        {"more than there are", 3, 100, "Randomly (for quality)", {0, 1, 2}, "No changes"},
        {"of nothing", 0, 100, "Top", {}, "No changes"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const OptionSettings options{{"Rows", c.rows}, {"Spread", c.spread}};
        EXPECT_EQ(sampled(c.count, options), c.taken);
        EXPECT_EQ(runTransform("Sample", options, {numbers(c.count)}).resultText(), c.text);
    }
}

TEST(TransformSample, DrawsAsDefined)
{
    for (const int count : {2, 10, 333, 2000}) {
        for (const int taken : {1, count / 2, count - 1}) {
            for (const int seed : {0, 1, 999999}) {
                SCOPED_TRACE(testing::Message() << taken << " of " << count << " with seed " << seed);
                const OptionSettings options{{"Rows", taken}, {"Seed", seed}};

                QRandomGenerator drawing(static_cast<quint32>(seed));
                QList<int> all;
                for (int i = 0; i < count; ++i) {
                    all.append(i);
                }
                QList<int> drawn;
                for (int i = 0; i < taken; ++i) {
                    const quint64 product = static_cast<quint64>(all.size() - 1) * drawing.generate();
                    drawn.append(all.takeAt(static_cast<int>(product / 4294967296ULL)));
                }
                std::sort(drawn.begin(), drawn.end());
                EXPECT_EQ(sampled(count, options + OptionSettings{{"Spread", "Randomly (for quality)"}}), drawn);

                QRandomGenerator walking(static_cast<quint32>(seed));
                QList<int> walked;
                for (int row = 0; row < count; ++row) {
                    const double share = static_cast<double>(taken - walked.size()) / (count - row);
                    if (walked.size() < taken && share >= walking.generate() / 4294967295.0) {
                        walked.append(row);
                    }
                }
                EXPECT_EQ(walked.size(), taken);
                EXPECT_EQ(sampled(count, options + OptionSettings{{"Spread", "Randomly (for speed)"}}), walked);
            }
        }
    }
}

TEST(TransformSample, CanBeDisabled)
{
    const TransformRun run = runTransform("Sample", {{"Rows", 1}, {"Disable", true}}, {numbers(3)});
    EXPECT_EQ(run.result.rowCount(), 3);
    EXPECT_EQ(run.warnings(), QStringList("Sampling is disabled"));
    EXPECT_EQ(run.resultText(), "No changes");
}

TEST(TransformSample, NeedsASeedForRandomRowsOnly)
{
    const struct
    {
        const char *what;
        OptionSettings options;
        bool active;
    } cases[] = {
        {"evenly", {}, false},
        {"for quality", {{"Spread", "Randomly (for quality)"}}, true},
        {"for speed", {{"Spread", "Randomly (for speed)"}}, true},
        {"disabled", {{"Spread", "Randomly (for speed)"}, {"Disable", true}}, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Sample", c.options, {numbers(3)});
        EXPECT_TRUE(run.transform->parameterStates().contains({"Seed", c.active}));
    }
}

TEST(TransformSample, SeedsNewItemsByTheTime)
{
    const auto seed = [] { return static_cast<int>(QDateTime::currentSecsSinceEpoch() % 999999); };
    const int before = seed();
    const int made = runTransform("Sample", {}, {numbers(3)}).transform->parameter("Seed")->toInt();
    const int after = seed();
    EXPECT_TRUE(after < before || (made >= before && made <= after)) << made;
}

TEST(RemainingRows, FindsRowsByThoseInFront)
{
    for (int count = 1; count < 40; ++count) {
        RemainingRows remaining(count);
        std::vector<int> plain(static_cast<size_t>(count));
        std::iota(plain.begin(), plain.end(), 0);
        QRandomGenerator random(static_cast<quint32>(count));
        while (!plain.empty()) {
            ASSERT_EQ(remaining.size(), static_cast<int>(plain.size()));
            const int index = random.bounded(remaining.size());
            ASSERT_EQ(remaining.take(index), plain[static_cast<size_t>(index)]);
            plain.erase(plain.begin() + index);
        }
    }
}

} // namespace
