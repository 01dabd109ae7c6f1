#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/parameter.h"

#include <gtest/gtest.h>
#include <random>

namespace {

const QPair<QString, QVariant> byMatches{"Of", "Rows with matching values for:"};

} // namespace

TEST(TransformImpute, FillsFromAllRows)
{
    const QString big = QString::number(1e308, 'f', 0);
    const struct
    {
        const char *what;
        QString with;
        QStringList cells;
        QStringList filled;
        QStringList infos;
        QStringList warnings;
        QString text;
    } cases[] = {
        {"the average", "Average", {"1", "", "2", "x", ""}, {"1", "1.5", "2", "x", "1.5"},
            {"2 empty value(s) set to column 'Value' average of 1.5"}, {}, "2 changed"},
        {"the median of an even list", "Median", {"1", "", "3"}, {"1", "2", "3"},
            {"1 empty value(s) set to column 'Value' median of 2"}, {}, "1 changed"},
        {"currency symbols don't matter", "Average", {"$1", "", "$3"}, {"$1", "2", "$3"},
            {"1 empty value(s) set to column 'Value' average of 2"}, {}, "1 changed"},
        {"numbers whose sum is beyond the largest number", "Average", {big, "", big}, {big, big, big},
            {"1 empty value(s) set to column 'Value' average of " + big}, {}, "1 changed"},
        {"the mode", "Mode", {"a", "b", "a", ""}, {"a", "b", "a", "a"},
            {"In column 'Value' 1 empty value(s) set to mode of 'a', which occurs 2 time(s) in 4 row(s)"}, {},
            "1 changed"},
        {"the first of several modes", "Mode", {"c", "b", "c", "b", "a", ""}, {"c", "b", "c", "b", "a", "c"},
            {"In column 'Value' 1 empty value(s) set to mode of 'c', which occurs 2 time(s) in 6 row(s)"},
            {"2 values occur 2 time(s) in column 'Value' and could be used as the mode value:\n'c'\n'b'\nJust 'c' was "
             "used as the mode value"},
            "1 changed"},
        {"a cut list of modes", "Mode", {"", "1", "2", "3", "4", "5", "6", "7"},
            {"1", "1", "2", "3", "4", "5", "6", "7"},
            {"In column 'Value' 1 empty value(s) set to mode of '1', which occurs 1 time(s) in 8 row(s)"},
            {"7 values occur 1 time(s) in column 'Value' and could be used as the mode "
             "value:\n'1'\n'2'\n'3'\n'4'\n'5'\n+ 2 more\nJust '1' was used as the mode value"},
            "1 changed"},
        {"texts too long for a cell are shared", "Mode", {"a long text", "", "a long text"},
            {"a long text", "a long text", "a long text"},
            {"In column 'Value' 1 empty value(s) set to mode of 'a long text', which occurs 2 time(s) in 3 row(s)"}, {},
            "1 changed"},
        {"no empty cells, a blank is none", "Average", {"1", " "}, {"1", " "},
            {"Column 'Value' has no empty values to impute"}, {}, "No changes"},
        {"no numbers", "Average", {"a", ""}, {"a", ""}, {},
            {"No numeric values in column 'Value' to set average of 1 empty value(s)"}, "No changes"},
        {"no numbers for a median", "Median", {"", ""}, {"", ""}, {},
            {"No numeric values in column 'Value' to set median of 2 empty value(s)"}, "No changes"},
        {"no texts", "Mode", {"", ""}, {"", ""}, {},
            {"No non-empty values in column 'Value' to set mode of 2 empty values"}, "No changes"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Impute", {{"Using", c.with}}, {column(c.cells)});
        EXPECT_EQ(rows(run.result), c.filled);
        EXPECT_EQ(run.infos(), c.infos);
        EXPECT_EQ(run.warnings(), c.warnings);
        EXPECT_EQ(run.resultText(), c.text);
    }
}

TEST(TransformImpute, FillsFromMatchingRows)
{
    const Dataset input = grid({"City|Kind|Price", "Rome|a|10", "rome|a|20", "Rome|b|60", "Oslo|a|7", "Rome|a|",
        "Oslo|c|", "Bern|z|", "Rome|b|x"});
    const struct
    {
        const char *what;
        OptionSettings options;
        QStringList prices;
        QStringList warnings;
        QString text;
    } cases[] = {
        {"all keys must match", {{"Matching_Columns", QStringList{"City", "Kind"}}},
            {"10", "20", "60", "7", "10", "", "", "x"},
            {"No matches for row 6, value(s)=Oslo, c", "No matches for row 7, value(s)=Bern, z",
                "2 empty value(s) not imputed in column 'Price'"},
            "1 changed"},
        {"without case", {{"Matching_Columns", QStringList{"City", "Kind"}}, {"Case_Sensitive", false}},
            {"10", "20", "60", "7", "15", "", "", "x"},
            {"No matches for row 6, value(s)=Oslo, c", "No matches for row 7, value(s)=Bern, z",
                "2 empty value(s) not imputed in column 'Price'"},
            "1 changed"},
        {"the best of them, or all rows",
            {{"Matching_Columns", QStringList{"City", "Kind"}}, {"Match_Type", "Best match"}},
            {"10", "20", "60", "7", "10", "7", "24.25", "x"}, {}, "3 changed"},
        {"the mode of the matching rows", {{"Matching_Columns", QStringList{"City"}}, {"Using", "Mode"}},
            {"10", "20", "60", "7", "10", "7", "", "x"},
            {"3 values occur 1 time(s) in column 'Price' and could be used as the mode value for row "
             "5:\n'10'\n'60'\n'x'\nJust '10' was used as the mode value",
                "No matches for row 7, value(s)=Bern", "1 empty value(s) not imputed in column 'Price'"},
            "2 changed"},
        {"nothing to match", {{"Matching_Columns", QStringList()}}, {"10", "20", "60", "7", "", "", "", "x"},
            {"No columns checked to match against", "1 option not set ('Matching columns')"}, "No changes"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform(
            "Impute", OptionSettings{{"Columns", "Price"}, byMatches} + c.options, {input});
        EXPECT_EQ(run.result.columnValues(ColumnIndex(2)), c.prices);
        EXPECT_EQ(run.warnings(), c.warnings);
        EXPECT_EQ(run.resultText(), c.text);
    }
}

TEST(TransformImpute, ReportsColumnsThatCantBeMatched)
{
    const Dataset input = grid({"k|empty|full|words", "1||1|", "2||2|a", "1||3|b"});
    const TransformRun run = runTransform(
        "Impute", {{"Columns", QStringList{"empty", "full", "words"}}, byMatches, {"Matching_Columns", "k"}}, {input});
    EXPECT_EQ(rows(run.result), rows(input));
    EXPECT_EQ(run.infos(), QStringList{"Column 'full' has no empty values to impute"});
    EXPECT_EQ(run.warnings(), (QStringList{"No non-empty values in column 'empty' to impute 3 empty values",
                                  "1 empty value(s) not imputed in column 'words'"}));
    EXPECT_EQ(run.resultText(), "No changes");
}

TEST(TransformImpute, TakesValuesFromTheTableAsItWas)
{
    const TransformRun run = runTransform("Impute",
        {{"Columns", QStringList{"a", "b"}}, {"Using", "Mode"}, byMatches, {"Matching_Columns", QStringList{"a", "b"}},
            {"Match_Type", "Best match"}},
        {grid({"a|b", "1|x", "|x", "2|"})});
    EXPECT_EQ(rows(run.result), (QStringList{"1|x", "1|x", "2|x"}));
}

TEST(TransformImpute, FindsTheBestMatchesOfAPlainSearch)
{
    std::mt19937 random(7);
    QStringList lines{"a|b|c|v"};
    for (int row = 0; row < 300; ++row) {
        lines.append(QStringLiteral("%1|%2|%3|%4")
                         .arg(random() % 6)
                         .arg(random() % 5)
                         .arg(random() % 9)
                         .arg(row % 3 == 0 ? QString() : QString::number(random() % 100)));
    }
    const Dataset input = grid(lines);
    const Dataset result = runOn("Impute",
        {{"Columns", "v"}, {"Using", "Median"}, byMatches, {"Matching_Columns", QStringList{"a", "b", "c"}},
            {"Match_Type", "Best match"}},
        input);
    for (int row = 0; row < 300; row += 3) {
        QMap<int, QVector<double>> byMatchCount;
        for (int other = 0; other < 300; ++other) {
            int matches = 0;
            for (int key = 0; key < 3; ++key) {
                matches += input.cell(RowIndex(row), ColumnIndex(key))
                               .sameText(input.cell(RowIndex(other), ColumnIndex(key)));
            }
            if (other % 3 != 0) {
                byMatchCount[matches].append(input.value(RowIndex(other), ColumnIndex(3)).toDouble());
            }
        }
        QVector<double> best = byMatchCount.last();
        std::sort(best.begin(), best.end());
        const int half = best.size() / 2;
        const double median = best.size() % 2 ? best.at(half) : (best.at(half - 1) + best.at(half)) / 2;
        EXPECT_EQ(result.value(RowIndex(row), ColumnIndex(3)).toDouble(), median) << row;
    }
}

TEST(TransformImpute, MatchingOptionsFollowTheRows)
{
    const TransformRun run = runTransform("Impute", {}, {column({"1", ""})});
    using States = QList<QPair<QString, bool>>;
    EXPECT_EQ(run.transform->parameterStates(),
        (States{{"Matching_Columns", false}, {"Match_Type", false}, {"Case_Sensitive", false}}));
    setOption(*run.transform, "Of", "Rows with matching values for:");
    EXPECT_EQ(run.transform->parameterStates(),
        (States{{"Matching_Columns", true}, {"Match_Type", true}, {"Case_Sensitive", true}}));
}
