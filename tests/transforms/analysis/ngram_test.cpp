#include "support/grid.h"
#include "support/runon.h"

#include <gtest/gtest.h>
#include <random>

TEST(TransformNgram, CountsSequencesOfWords)
{
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList cells;
        QStringList rows;
    } cases[] = {
        {"all sizes", {}, {"a b a"}, {"a|1|1", "a b|2|1", "a b a|3|1", "b|1|1", "b a|2|1"}},
        {"once for each row", {{"Max_N", 1}}, {"x x", "x y"}, {"x|1|2", "y|1|1"}},
        {"one size", {{"Min_N", 2}, {"Max_N", 2}}, {"the cat sat", "the cat"}, {"the cat|2|2", "cat sat|2|1"}},
        {"an apostrophe belongs to a word, a hyphen and others end it", {{"Max_N", 1}}, {"it's well-known, 2nd_time"},
            {"2nd|1|1", "it's|1|1", "known|1|1", "time|1|1", "well|1|1"}},
        {"letters and digits of other scripts", {{"Max_N", 1}}, {"Zoë ٣ 漢字 x²"},
            {"Zoë|1|1", "x|1|1", "٣|1|1", "漢字|1|1"}},
        {"with case", {{"Max_N", 1}}, {"A a A"}, {"A|1|1", "a|1|1"}},
        {"without case", {{"Max_N", 1}, {"Case_Sensitive", false}}, {"Äa äA", "ÄA"}, {"äa|1|2"}},
        {"the most frequent first, numbers by value", {{"Max_N", 1}}, {"10 9", "9 10", "9", "2"},
            {"9|1|3", "10|1|2", "2|1|1"}},
        {"no words at all", {}, {"-", "", "…"}, {}},
        {"fewer words than asked for", {{"Min_N", 3}}, {"a b"}, {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Ngram", c.options, {column(c.cells)});
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.result.header(), (QStringList{"Ngrams", "Words", "Rows"}));
        EXPECT_EQ(run.infos(), QStringList{QStringLiteral("%1 Ngrams").arg(c.rows.size())});
        EXPECT_EQ(run.resultText(), QStringLiteral("%1 ngrams from %2 rows").arg(c.rows.size()).arg(c.cells.size()));
        EXPECT_EQ(run.warnings(), QStringList());
        EXPECT_FALSE(run.result.hasDrilldown());
    }
}

TEST(TransformNgram, SumsAColumn)
{
    const Dataset input = grid({"t|n", "a b| $1.5 ", "a|", "b|x", "a|2", "-|y"});
    const TransformRun run = runTransform("Ngram", {{"Column", "t"}, {"Sum", "n"}, {"Max_N", 1}}, {input});
    EXPECT_EQ(rows(run.result), (QStringList{"a|1|3.5", "b|1|1.5"}));
    EXPECT_EQ(run.result.header(), (QStringList{"Ngrams", "Words", "n"}));
    EXPECT_EQ(run.warnings(), (QStringList{"'n' non-numeric value:", "Invalid numeric value 'x' for column 'n' row 3"}))
        << "a row without a sequence doesn't count";
    QStringList bad{"t|n"};
    for (int i = 0; i < 7; ++i) {
        bad.append("a|x");
    }
    const TransformRun many = runTransform("Ngram", {{"Column", "t"}, {"Sum", "n"}}, {grid(bad)});
    EXPECT_EQ(many.warnings().size(), 7);
    EXPECT_EQ(many.warnings().first(), "'n' non-numeric values:");
    EXPECT_EQ(many.warnings().last(), "+ 2 others");
}

TEST(TransformNgram, DrillsDownToTheRows)
{
    const TransformRun run = runTransform(
        "Ngram", {{"Max_N", 1}, {"Drilldown", true}}, {column({"b", "a", "a b", "b"})});
    EXPECT_EQ(rows(run.result), (QStringList{"b|1|3", "a|1|2"}));
    EXPECT_EQ(
        run.result.drilldownRows(RowIndex(0), ColumnIndex()), (QList<RowIndex>{RowIndex(0), RowIndex(2), RowIndex(3)}));
    EXPECT_EQ(run.result.drilldownRows(RowIndex(1), ColumnIndex()), (QList<RowIndex>{RowIndex(1), RowIndex(2)}));
}

TEST(TransformNgram, WantsSizesInOrder)
{
    const TransformRun run = runTransform("Ngram", {{"Min_N", 3}, {"Max_N", 2}}, {column("a")});
    EXPECT_EQ(run.warnings(), QStringList{"Maximum N must be >= Minimum N"});
    EXPECT_FALSE(run.result.hasColumns());
}

TEST(TransformNgram, CountsAsAPlainCountDoes)
{
    std::mt19937 random(11);
    QStringList cells;
    QHash<QString, int> expected;
    for (int row = 0; row < 800; ++row) {
        QStringList words;
        for (unsigned i = random() % 12; i > 0; --i) {
            words.append(QStringLiteral("w%1").arg(random() % 40));
        }
        cells.append(words.join(' '));
        QSet<QString> found;
        for (int size = 2; size <= 4; ++size) {
            for (int start = 0; start + size <= words.size(); ++start) {
                found.insert(QStringList(words.mid(start, size)).join(' '));
            }
        }
        for (const QString &ngram : qAsConst(found)) {
            ++expected[ngram];
        }
    }
    const Dataset result = runOn("Ngram", {{"Min_N", 2}, {"Max_N", 4}}, column(cells));
    EXPECT_EQ(result.rowCount(), expected.size());
    for (int row = 0; row < result.rowCount(); ++row) {
        const QStringList cellsOfRow = result.row(RowIndex(row));
        ASSERT_EQ(expected.value(cellsOfRow.at(0)), cellsOfRow.at(2).toInt()) << cellsOfRow.at(0).toStdString();
        ASSERT_EQ(cellsOfRow.at(0).count(' ') + 1, cellsOfRow.at(1).toInt());
    }
}
