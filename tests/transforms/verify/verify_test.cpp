#include "support/scopedlocale.h"
#include "transforms/verify/verifying.h"

#include <gtest/gtest.h>

namespace {

enum Severity { Info = VerifyRule::Information, Warning = VerifyRule::Warning, Error = VerifyRule::Error };

/// Row 1 passes; row 2 has an information, row 3 a warning, row 4 an error, row 5 all three.
TransformRun filtered(const OptionSettings &options)
{
    const VerifyColumn rules{0, {active(39, {}, Info), active(37, {}, Warning), active(34, {}, Error)}};
    const VerifyColumn tabs{0, {active(41, {}, Info)}};
    const Dataset input = grid({"a|b", "ok|", "info|\n", "a b|", "c.|", "\t.|"});
    return runTransform("Verify", OptionSettings{{"Rules", ruleSet({}, {{1, rules}, {2, tabs}})}} + options, {input});
}

} // namespace

TEST(TransformVerify, TellsWhatItFound)
{
    const Dataset input = grid({"id|Name|name", "1|Ann|", "||", "x|bob|", "2|cy|", "3|dee|", "4|eve|", "5|fay|"});
    const QVariant rules = ruleSet({active(3, 9, Error), active(0), active(5, {}, Info), {1, 5, 2, false}},
        {{1, {VerifyColumn::Integer, {active(2, "NaN", Error), active(11, 2), {7, {}, 2, false}}}},
            {2, {VerifyColumn::Text, {active(27, {}, Warning), active(7, {}, Error)}}}});
    const TransformRun run = runTransform("Verify", {{"Rules", rules}, {"Case_Sensitive", false}}, {input});
    const QStringList expected{
        "13 verification fail(s) (4 error, 8 warning, 1 information)\n7 row(s) with fails\n3 columns(s) with fails\n"
        "Dataset rule: No duplicate col names, 2 fail(s)\nDataset rule: Minimum number of rows, 1 fail(s)\n"
        "Dataset rule: No empty rows, 1 fail(s)\nColumn rule: Integer except listed, 2 fail(s)\n"
        "Column rule: No empty values, 1 fail(s)\nColumn rule: Minimum value, 1 fail(s)\n"
        "Column rule: Is sentence case, 5 fail(s)",
        "Dataset [3 rule(s) active]",
        "Dataset rule: Minimum number of rows '9', Error 1 fail(s) (7 row(s))",
        "Dataset rule: No duplicate col names, Warning 2 fail(s) ('name'x2)",
        "Dataset rule: No empty rows, Information 1 fail(s) (input row(s)=2)",
        "Column 1: 'id' [Type=Numeric (integer), 2 rule(s) active] 3 fails (2 Error, 1 Warning, 0 Information)",
        "Column rule: Integer except listed 'NaN', Error 2 fail(s) (input row(s)=2,3)",
        "Column rule: Minimum value '2', Warning 1 fail(s) (input row(s)=1)",
        "Column 2: 'Name' [Type=Text, 2 rule(s) active] 6 fails (1 Error, 5 Warning, 0 Information)",
        "Column rule: Is sentence case, Warning 5 fail(s) (input row(s)=3,4,5,6,7)",
        "Column rule: No empty values, Error 1 fail(s) (input row(s)=2)",
    };
    EXPECT_EQ(run.infos(), expected);
    EXPECT_EQ(run.resultText(), "13 fails (4 error, 8 warning, 1 information)");
    EXPECT_TRUE(run.hasIssues);
    EXPECT_EQ(rows(run.result), rows(input));
}

TEST(TransformVerify, SaysWhenNothingFails)
{
    const TransformRun run = verifyColumn({0, {active(7, {}, Error)}}, {"a"});
    EXPECT_EQ(run.resultText(), "No verifications fails");
    EXPECT_EQ(run.infos(),
        (QStringList{"0 verification fail(s)", "Dataset [0 rule(s) active]",
            "Column 1: 'Value' [Type=Text, 1 rule(s) active]", "Column rule: No empty values, Error 0 fail(s)"}));
    EXPECT_FALSE(run.hasIssues);
    EXPECT_FALSE(run.result.hasIssues());
    EXPECT_EQ(verifyColumn({0, {active(7, {}, Warning)}}, {""}).resultText(), "1 fail (1 warning)");
}

TEST(TransformVerify, GroupsLargeCounts)
{
    const ScopedLocale english("en_US");
    QStringList cells;
    for (int i = 0; i < 1200; ++i) {
        cells.append(QString());
    }
    const TransformRun run = verifyColumn({0, {active(7, {}, Error)}}, cells);
    EXPECT_EQ(run.resultText(), "1,200 fails (1,200 error)");
    EXPECT_EQ(run.infos().first(), "1,200 verification fail(s) (1,200 error)\n1,200 row(s) with fails\n"
                                   "1 columns(s) with fails\nColumn rule: No empty values, 1,200 fail(s)");
    EXPECT_EQ(run.infos().constLast(),
        "Column rule: No empty values, Error 1,200 fail(s) (input row(s)=1,2,3,4,5…+1,195 more)");
}

TEST(TransformVerify, ChecksTheTable)
{
    const Dataset input = grid({"a|A|a", "1||", "||"});
    const struct
    {
        const char *what;
        VerifyRule rule;
        bool caseSensitive;
        QString line;
    } cases[] = {
        {"names with case", active(0), true, "No duplicate col names, Warning 2 fail(s) ('a'x2)"},
        {"names without case", active(0), false, "No duplicate col names, Warning 3 fail(s) ('a'x3)"},
        {"enough columns", active(1, 3), true, "Minimum number of cols '3', Warning 0 fail(s)"},
        {"too few columns", active(1, 4), true, "Minimum number of cols '4', Warning 1 fail(s) (3 column(s))"},
        {"not too many columns", active(2, 3), true, "Maximum number of cols '3', Warning 0 fail(s)"},
        {"too many columns", active(2, 2), true, "Maximum number of cols '2', Warning 1 fail(s) (3 column(s))"},
        {"enough rows", active(3, 2), true, "Minimum number of rows '2', Warning 0 fail(s)"},
        {"too few rows", active(3, 3), true, "Minimum number of rows '3', Warning 1 fail(s) (2 row(s))"},
        {"not too many rows", active(4, 2), true, "Maximum number of rows '2', Warning 0 fail(s)"},
        {"too many rows", active(4, 1), true, "Maximum number of rows '1', Warning 1 fail(s) (2 row(s))"},
        {"an empty row", active(5), true, "No empty rows, Warning 1 fail(s) (input row(s)=2)"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform(
            "Verify", {{"Rules", ruleSet({c.rule}, {})}, {"Case_Sensitive", c.caseSensitive}}, {input});
        EXPECT_EQ(run.infos().value(2), "Dataset rule: " + c.line);
    }
    const TransformRun empty = runTransform("Verify", {{"Rules", ruleSet({active(5)}, {})}}, {grid({"a|b"})});
    EXPECT_EQ(empty.resultText(), "No verifications fails");
}

TEST(TransformVerify, MarksCellsRowsAndColumns)
{
    const Dataset input = grid({"a|a|c", "x||1", "||", "y||"});
    const QVariant rules = ruleSet({active(0, {}, Info), active(5, {}, Warning)},
        {{1, {0, {active(7, {}, Warning), active(15, 1, Error)}}}, {3, {0, {active(0, "C", Error)}}}});
    const Dataset result = runTransform("Verify", {{"Rules", rules}}, {input}).result;
    const auto level = [&result](int row, int column) { return result.issueLevel(RowIndex(row), ColumnIndex(column)); };
    EXPECT_EQ(level(1, 0), Error) << "of two fails the graver one counts";
    EXPECT_EQ(level(0, 0), DatasetIssues::noLevel);
    EXPECT_EQ(level(1, 2), DatasetIssues::noLevel) << "a rule on the column marks no cell";
    EXPECT_EQ(level(1, -1), Error);
    EXPECT_EQ(level(-1, 1), Info);
    EXPECT_EQ(level(-1, 2), Error);
    EXPECT_EQ(result.issueText(RowIndex(1), ColumnIndex()),
        "Dataset rule fail: No empty rows (1)\nColumn rule fail: No empty values (1)\n"
        "Column rule fail: Minimum characters (1)");
    EXPECT_EQ(result.issueText(RowIndex(), ColumnIndex(2)), "Column rule fail: Match column name (1)");
}

TEST(TransformVerify, LeavesOutMarksOfAnEarlierVerification)
{
    Dataset input = column({"a", "b"});
    input.addCellIssue(RowIndex(0), ColumnIndex(0), Error, 7);
    EXPECT_FALSE(runTransform("Verify", {}, {input}).result.hasIssues());
}

TEST(TransformVerify, FiltersRowsByTheirFails)
{
    const QString keep = "Keep rows with:";
    const QString remove = "Remove rows with:";
    const struct
    {
        const char *what;
        QString filter;
        bool none, info, warning, error;
        QStringList left;
        QString text;
    } cases[] = {
        {"all rows", "Keep all rows", false, false, false, false, {"ok", "info", "a b", "c.", "\t."}, ""},
        {"every kind", keep, true, true, true, true, {"ok", "info", "a b", "c.", "\t."}, ""},
        {"no kind", keep, false, false, false, false, {}, ", 5 row(s) removed"},
        {"keep what passes", keep, true, false, false, false, {"ok"}, ", 4 row(s) removed"},
        {"keep information", keep, false, true, false, false, {"info", "\t."}, ", 3 row(s) removed"},
        {"keep warnings and errors", keep, false, false, true, true, {"a b", "c.", "\t."}, ", 2 row(s) removed"},
        {"remove errors", remove, false, false, false, true, {"ok", "info", "a b"}, ", 2 row(s) removed"},
        {"remove what passes", remove, true, false, false, false, {"info", "a b", "c.", "\t."}, ", 1 row(s) removed"},
        {"remove every kind", remove, true, true, true, true, {}, ", 5 row(s) removed"},
        {"remove no kind", remove, false, false, false, false, {"ok", "info", "a b", "c.", "\t."}, ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = filtered({{"Keep_Remove_rows", c.filter}, {"No_Fail", c.none}, {"No_Info", c.info},
            {"No_Warning", c.warning}, {"No_Error", c.error}});
        EXPECT_EQ(run.result.columnValues(ColumnIndex(0)), c.left);
        EXPECT_EQ(run.resultText(), "6 fails (2 error, 2 warning, 2 information)" + c.text);
    }
}

TEST(TransformVerify, MovesMarksWithTheirRows)
{
    const TransformRun run = filtered(
        {{"Keep_Remove_rows", "Keep rows with:"}, {"No_Fail", false}, {"No_Info", false}, {"No_Warning", false}});
    ASSERT_EQ(rows(run.result), (QStringList{"c.|", "\t.|"}));
    EXPECT_EQ(markedCells(run.result), (QStringList{"c.", "\t."}));
    EXPECT_EQ(run.result.issueText(RowIndex(0), ColumnIndex()), "Column rule fail: No punctuation (1)");
    EXPECT_EQ(run.result.issueLevel(RowIndex(), ColumnIndex(1)), DatasetIssues::noLevel) << "its row has gone";
    EXPECT_EQ(run.infos().value(3), "Column rule: No Tab characters, Information 1 fail(s) (input row(s)=5)");
}

TEST(TransformVerify, RemovesEmptyRowsThatFailTheRuleOfTheTable)
{
    const OptionSettings options{{"Rules", ruleSet({active(5, {}, Error)}, {})},
        {"Keep_Remove_rows", "Remove rows with:"}, {"No_Fail", false}, {"No_Info", false}, {"No_Warning", false}};
    EXPECT_EQ(rows(runOn("Verify", options, grid({"a|b", "1|", "|", "|2"}))), (QStringList{"1|", "|2"}));
}

TEST(TransformVerify, IgnoresRulesThatDontExist)
{
    const QVariant rules = ruleSet({active(6), active(-1), active(99)}, {{1, {0, {active(54), active(-1)}}}});
    const TransformRun run = runTransform("Verify", {{"Rules", rules}}, {column({"a"})});
    EXPECT_EQ(run.infos(), (QStringList{"0 verification fail(s)", "Dataset [3 rule(s) active]"}));
}
