#include "data/matchoperator.h"
#include "support/grid.h"
#include "support/runon.h"
#include "transforms/options/records.h"

#include <gtest/gtest.h>

namespace {

enum Op { Contains = 0, Equal = 1, Greater = 4, Empty = 19 };

FilterTerm condition(int column, int op, const QString &text)
{
    return {column > 0 ? ColumnId(1, column) : ColumnId(), op, text};
}

QVariant record(const QList<IfBranch> &branches, const QString &elseText)
{
    return QVariant::fromValue(IfRecord{branches, elseText});
}

TEST(TransformIf, TakesTheFirstBranchThatHolds)
{
    const Dataset input = grid({"name|price", "Ann|10", "Bob|9", "Cleo|"});
    const struct
    {
        const char *what;
        QVariant record;
        QStringList column;
        QString text;
    } cases[] = {
        {"one branch", record({{{condition(2, Greater, "9")}, "dear"}}, "cheap"), {"dear", "cheap", "cheap"},
            "1 match(es) IF/ELSE IF, 2 match(es) ELSE"},
        {"the first of two",
            record({{{condition(1, Equal, "Ann")}, "first"}, {{condition(1, Contains, "n")}, "second"}}, ""),
            {"first", "", ""}, "1 match(es) IF/ELSE IF, 2 match(es) ELSE"},
        {"all conditions must hold", record({{{condition(1, Contains, "b"), condition(2, Equal, "9.0")}, "yes"}}, "no"),
            {"no", "yes", "no"}, "1 match(es) IF/ELSE IF, 2 match(es) ELSE"},
        {"any column", record({{{condition(0, Empty, "")}, "gap"}}, "full"), {"full", "full", "gap"},
            "1 match(es) IF/ELSE IF, 2 match(es) ELSE"},
        {"a condition without text isn't skipped", record({{{condition(1, Contains, "")}, "all"}}, "none"),
            {"all", "all", "all"}, "3 match(es) IF/ELSE IF, 0 match(es) ELSE"},
        {"a branch without conditions doesn't hold", record({{{}, "then"}}, "else"), {"else", "else", "else"},
            "0 match(es) IF/ELSE IF, 3 match(es) ELSE"},
        {"a column that has gone", record({{{condition(9, Contains, "")}, "then"}}, "else"), {"else", "else", "else"},
            "0 match(es) IF/ELSE IF, 3 match(es) ELSE"},
        {"texts with variables", record({{{condition(2, Equal, "10")}, "$(name) pays $(2)"}}, "$(name): $(x)"),
            {"Ann pays 10", "Bob: $(x)", "Cleo: $(x)"}, "1 match(es) IF/ELSE IF, 2 match(es) ELSE"},
        {"an unchanged record", QVariant::fromValue(IfRecord()), {"", "", ""}, "THEN and ELSE empty"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("If", {{"If", c.record}}, {input});
        EXPECT_EQ(run.result.columnNames(), (QStringList{"name", "price", "If"}));
        EXPECT_EQ(run.result.columnValues(ColumnIndex(2)), c.column);
        EXPECT_EQ(run.result.columnValues(ColumnIndex(0)), input.columnValues(ColumnIndex(0)));
        EXPECT_TRUE(run.result.columnId(ColumnIndex(2)).isNull());
        EXPECT_EQ(run.resultText(), c.text);
    }
}

TEST(TransformIf, IgnoresCaseWhenTold)
{
    const OptionSettings options{
        {"If", record({{{condition(1, Equal, "ANN")}, "yes"}}, "no")}, {"Case_Sensitive", false}};
    EXPECT_EQ(rows(runOn("If", options, column("Ann"))), QStringList("Ann|yes"));
}

TEST(TransformIf, NamesTheColumn)
{
    EXPECT_EQ(runOn("If", {{"New_Name", "Check"}}, column("Ann")).columnNames(), (QStringList{"Value", "Check"}));
    EXPECT_EQ(runOn("If", {{"New_Name", ""}}, column("Ann")).columnNames(), (QStringList{"Value", "2"}));
    EXPECT_EQ(runOn("If", {}, plainGrid({"Ann"})).columnNames(), (QStringList{"1", "If"}));
}

} // namespace
