#include "transforms/verify/verifying.h"

#include <QLocale>
#include <gtest/gtest.h>

namespace {

/// The line of the report on the only rule.
QString ruleLine(const TransformRun &run)
{
    return run.infos().constLast();
}

} // namespace

TEST(VerifyColumnRules, JudgeTheColumnAlone)
{
    const struct
    {
        const char *what;
        VerifyRule rule;
        QStringList cells;
        QString line;
        bool caseSensitive = true;
    } cases[] = {
        {"0: the name", active(0, "Value"), {"a"}, "Match column name 'Value', Warning 0 fail(s)"},
        {"0: another name", active(0, "value"), {"a"}, "Match column name 'value', Warning 1 fail(s)"},
        {"0: the name without regard to case", active(0, "value"), {"a"},
            "Match column name 'value', Warning 0 fail(s)", false},
        {"8: one that isn't empty is enough", active(8), {"", " "}, "At least 1 non-empty, Warning 0 fail(s)"},
        {"8: all are empty", active(8), {"", ""}, "At least 1 non-empty, Warning 1 fail(s)"},
        {"8: no rows", active(8), {}, "At least 1 non-empty, Warning 1 fail(s)"},
        {"19: all come", active(19, "a,b"), {"b", "x", "a"}, "Require listed values 'a,b', Warning 0 fail(s)"},
        {"19: some are missing", active(19, "a,b,c"), {"b"},
            "Require listed values 'a,b,c', Warning 1 fail(s) (required value(s) not found=a,c)"},
        {"19: case always counts", active(19, "a"), {"A"},
            "Require listed values 'a', Warning 1 fail(s) (required value(s) not found=a)", false},
        {"19: nothing listed", active(19, ""), {}, "Require listed values '', Warning 0 fail(s)"},
        {"5: a gap", active(5), {"4", "1", "x", "2", "4"}, "No gaps in values, Warning 1 fail(s) (missing value(s)=3)"},
        {"5: no gap", active(5), {"2", "1", "1.0"}, "No gaps in values, Warning 0 fail(s)"},
        {"5: no numbers", active(5), {"x", ""}, "No gaps in values, Warning 0 fail(s)"},
        {"5: five are told", active(5), {"0", "6"},
            "No gaps in values, Warning 5 fail(s) (missing value(s)=1,2,3,4,5)"},
        {"5: more are counted", active(5), {"0", "2", "9"},
            "No gaps in values, Warning 7 fail(s) (missing value(s)=1,3,4,5,6…)"},
        {"5: all whole numbers there are", active(5), {"-2147483648", "2147483647"},
            "No gaps in values, Warning 4,294,967,294 fail(s) (missing "
            "value(s)=-2147483647,-2147483646,-2147483645,-2147483644,-2147483643…)"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = verifyColumn({0, {c.rule}}, c.cells, {{"Case_Sensitive", c.caseSensitive}});
        EXPECT_EQ(ruleLine(run), "Column rule: " + c.line);
        EXPECT_TRUE(markedCells(run.result).isEmpty());
        const bool failed = !c.line.contains(" 0 fail(s)");
        EXPECT_EQ(run.result.issueLevel(RowIndex(), ColumnIndex(0)), failed ? 1 : DatasetIssues::noLevel);
    }
}

TEST(VerifyColumnRules, FindMissingDays)
{
    const VerifyRule format{3, "d/M/yyyy", VerifyRule::Warning, false};
    const TransformRun run = verifyColumn(
        {VerifyColumn::Date, {format, active(6)}}, {"28/2/2024", "x", "3/3/2024", "1/3/2024"});
    EXPECT_EQ(
        ruleLine(run), QStringLiteral("Column rule: No gaps in values, Warning 2 fail(s) (missing value(s)=%1,%2)")
                           .arg(QLocale().toString(QDate(2024, 2, 29), QLocale::LongFormat),
                               QLocale().toString(QDate(2024, 3, 2), QLocale::LongFormat)));
    EXPECT_EQ(run.resultText(), "2 fails (2 warning)");
}

TEST(VerifyColumnRules, FindValuesThatComeMoreThanOnce)
{
    const VerifyRule format{3, "d/M/yyyy", VerifyRule::Warning, false};
    const struct
    {
        const char *what;
        QList<VerifyRule> rules;
        QStringList cells;
        QString rows;
        bool caseSensitive = true;
    } cases[] = {
        {"4: every row, by value", {active(4)}, {"b", "a", "B", "b", "c", "a"}, "2,6,1,4"},
        {"4: without regard to case", {active(4)}, {"b", "É", "B", "é", "c"}, "1,3,2,4", false},
        {"4: the order of values is that of code units", {active(4)}, {"\uFFFD", "😀", "\uFFFD", "😀"}, "2,4,1,3"},
        {"4: long and empty texts", {active(4)}, {"", "a long text here", "", "a long text here"}, "1,3,2,4"},
        {"47: as whole numbers", {active(47)}, {"1", "+1", " 1", "01", "x", "x", "-3", "-3.0"}, "7,8,1,2,3…+1 more"},
        {"48: as dates", {format, active(48)}, {"1/1/2000", "01/01/2000", "x", "x", "31/12/1999", "31/12/1999"},
            "5,6,1,2"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = verifyColumn({0, c.rules}, c.cells, {{"Case_Sensitive", c.caseSensitive}});
        EXPECT_TRUE(ruleLine(run).endsWith(" fail(s) (input row(s)=" + c.rows + ")")) << ruleLine(run).toStdString();
    }
    EXPECT_EQ(verifyColumn({0, {active(4)}}, {"a", "b", ""}).resultText(), "No verifications fails");
}

TEST(VerifyColumnRules, LookForTheFormatOfDates)
{
    const QList<VerifyRule> rules{active(3, " "), active(13, QDate(2020, 1, 1)), active(48), active(6)};
    const TransformRun found = verifyColumn(
        {VerifyColumn::Date, rules}, {"2024-12-31", "2019-12-31", "2024-12-31", "2024-2-30"});
    EXPECT_EQ(found.warnings(),
        (QStringList{"No date format set for 'Valid date in format'", "Unable to infer date format for column 1"}));
    EXPECT_EQ(found.resultText(), "No verifications fails");
    const TransformRun inferred = verifyColumn({VerifyColumn::Date, rules}, {"2024-12-31", "2024-12-29", "2019-12-31"});
    EXPECT_EQ(inferred.warnings(), (QStringList{"No date format set for 'Valid date in format'",
                                       "Inferred date format for column 1 as 'yyyy-M-d'"}));
    EXPECT_EQ(markedCells(inferred.result), QStringList("2019-12-31"));
    const TransformRun text = verifyColumn({VerifyColumn::Text, rules}, {"2024-12-31", "x"});
    EXPECT_TRUE(text.warnings().isEmpty());
    EXPECT_EQ(text.resultText(), "No verifications fails");
}
