#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedsettings.h"
#include "transforms/options/parameter.h"

#include <QDate>
#include <gtest/gtest.h>

namespace {

struct RowsCase
{
    const char *what;
    QStringList input;
    OptionSettings options;
    QStringList expected;
    QStringList warnings;
    QString text;
};

void expectCases(const QString &kind, const QVector<RowsCase> &cases)
{
    for (const RowsCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform(kind, c.options, {grid(c.input)});
        EXPECT_EQ(rows(run.result), c.expected);
        EXPECT_EQ(run.result.header(), c.input.first().split('|'));
        EXPECT_EQ(run.warnings(), c.warnings);
        EXPECT_EQ(run.resultText(), c.text);
    }
}

OptionSettings between(const QVariant &minimum, const QVariant &maximum, const QString &type)
{
    OptionSettings options{{"Col_Name", "n"}};
    if (minimum.isValid()) {
        options += {{"Minimum_Missing_type", "User defined"}, {"User_Define_Minimum_Missing_" + type, minimum}};
    }
    if (maximum.isValid()) {
        options += {{"Maximum_Missing_type", "User defined"}, {"User_Define_Maximum_Missing_" + type, maximum}};
    }
    return options;
}

TEST(TransformSequence, AddsMissingIntegers)
{
    const QStringList gap{"n|a", "5|five", "1|one", "2|two"};
    const QString none = "Can't establish minimum and/or maximum for sequence";
    expectCases("Sequence",
        {
            {"blank rows between", gap, {{"Col_Name", "n"}}, {"1|one", "2|two", "3|", "4|", "5|five"}, {},
                "2 new rows added"},
            {"copies of the row below", gap, {{"Col_Name", "n"}, {"As_Name", "Copy from below"}},
                {"1|one", "2|two", "3|five", "4|five", "5|five"}, {}, "2 new rows added"},
            {"copies of the row above, descending", gap,
                {{"Col_Name", "n"}, {"As_Name", "Copy from above"}, {"Order", "Descending"}},
                {"5|five", "4|five", "3|five", "2|two", "1|one"}, {}, "2 new rows added"},
            {"a value of the user's", gap,
                {{"Col_Name", "n"}, {"As_Name", "User defined"}, {"User_Defined_Row_Value", "a value to be set"}},
                {"1|one", "2|two", "3|a value to be set", "4|a value to be set", "5|five"}, {}, "2 new rows added"},
            {"no neighbour to copy on that side", gap,
                between(-1, QVariant(), "Int") + OptionSettings{{"As_Name", "Copy from above"}},
                {"-1|", "0|", "1|one", "2|two", "3|two", "4|two", "5|five"}, {}, "4 new rows added"},
            {"rows beyond the bounds stay in their place", gap, between(3, 4, "Int"),
                {"1|one", "2|two", "3|", "4|", "5|five"}, {}, "2 new rows added"},
            {"one is missing", {"n|a", "2|x", "2|y", "0|z"}, {{"Col_Name", "n"}}, {"0|z", "1|", "2|x", "2|y"}, {},
                "1 new row added"},
            {"nothing is missing", {"n|a", "2|x", "1|y"}, {{"Col_Name", "n"}}, {"1|y", "2|x"}, {}, "No changes"},
            {"invalid values", {"n|a", "1|p", "x|q", "3.0|r"}, {{"Col_Name", "n"}}, {"1|p", "2|", "3.0|r", "x|q"},
                {"1 invalid row values", "'x' at row 2 in the input dataset is not a valid integer value."},
                "1 new row added"},
            {"only invalid values", {"n|a", "a|", "b|", "c|", "d|", "1.5|", "|", "g|"}, {{"Col_Name", "n"}},
                {"a|", "b|", "c|", "d|", "1.5|", "|", "g|"},
                {"7 invalid row values", "'a' at row 1 in the input dataset is not a valid integer value.",
                    "'b' at row 2 in the input dataset is not a valid integer value.",
                    "'c' at row 3 in the input dataset is not a valid integer value.",
                    "'d' at row 4 in the input dataset is not a valid integer value.",
                    "'1.5' at row 5 in the input dataset is not a valid integer value.", "+ 2 other", none},
                "No changes"},
            {"no rows", {"n|a"}, {{"Col_Name", "n"}}, {}, {none}, "No changes"},
            {"bounds the wrong way round", gap, between(9, 8, "Int"), gap.mid(1),
                {"Maximum value must not be less than minimum value"}, "No changes"},
            {"no column", gap, {}, gap.mid(1),
                {"Set 'From column' to the column containing missing integer values",
                    "1 option not set ('From column')"},
                "No changes"},
            {"numbers that share their nearest double",
                {"n|a", "9007199254740993|x", "9007199254740995|y", "9007199254740992|z"}, {{"Col_Name", "n"}},
                {"9007199254740992|z", "9007199254740993|x", "9007199254740994|", "9007199254740995|y"}, {},
                "1 new row added"},
            {"up to the largest of 64 bits",
                {"n|a", "9223372036854775807|x", "9223372036854775805|y", "9223372036854775808|z"},
                {{"Col_Name", "n"}, {"Order", "Descending"}},
                {"9223372036854775808|z", "9223372036854775807|x", "9223372036854775806|", "9223372036854775805|y"},
                {"1 invalid row values",
                    "'9223372036854775808' at row 3 in the input dataset is not a valid integer value."},
                "1 new row added"},
            {"more rows than any table has", {"n|a", "-9223372036854775808|x", "9223372036854775807|y"},
                {{"Col_Name", "n"}}, {"-9223372036854775808|x", "9223372036854775807|y"},
                {"Too many cells (2 cols x 4,611,686,018,427,387,906 rows)"}, "Too many cells"},
        });
}

TEST(TransformSequence, AddsMissingDates)
{
    ScopedSettings settings;
    Settings::current().setDateFormats({"dd/MM/yyyy", "yyyy-MM-dd"});
    const OptionSettings dates{{"How_Name", "Missing dates"}};
    const QStringList leap{"n|a", "2024-02-28|x", "2024-03-01|y"};
    expectCases("Sequence",
        {
            {"in the format of the column", leap, dates + OptionSettings{{"Col_Name", "n"}},
                {"2024-02-28|x", "2024-02-29|", "2024-03-01|y"}, {}, "1 new row added"},
            {"bounds of the user's", leap,
                dates + between(QDate(2024, 2, 27), QDate(2024, 2, 28), "Date")
                    + OptionSettings{{"Order", "Descending"}},
                {"2024-03-01|y", "2024-02-28|x", "2024-02-27|"}, {}, "1 new row added"},
            {"bounds the wrong way round", leap, dates + between(QDate(2024, 3, 2), QVariant(), "Date"), leap.mid(1),
                {"Maximum value must not be before minimum value"}, "No changes"},
            {"no dates", {"n|a", "1|x"}, dates + OptionSettings{{"Col_Name", "n"}}, {"1|x"},
                {"Can't establish date format for values in the 'n' column"}, "No changes"},
            {"no column", leap, dates, leap.mid(1),
                {"Set 'From column' to the column containing missing date values", "1 option not set ('From column')"},
                "No changes"},
            {"an empty cell is no date", {"n|a", "|x", "2024-01-01|y"}, dates + OptionSettings{{"Col_Name", "n"}},
                {"|x", "2024-01-01|y"},
                {"1 invalid row values", "'' at row 1 in the input dataset is not a valid date value."}, "No changes"},
        });
}

TEST(TransformNewRows, AddsRows)
{
    const QStringList input{"a|n", "x|1", "y|2"};
    const OptionSettings two{{"Number_Const_Name", 2}};
    const OptionSettings counted{{"Number_How_Name", "Set from a column"}, {"Number_Col_Name", "n"}};
    expectCases("New_Rows",
        {
            {"none", input, {}, input.mid(1), {}, "No changes"},
            {"blank ones above", input, two, {"|", "|", "x|1", "|", "|", "y|2"}, {}, "4 new rows added"},
            {"blank ones above the first", input, two + OptionSettings{{"For_Name", "First row"}},
                {"|", "|", "x|1", "y|2"}, {}, "2 new rows added"},
            {"one below the last", input,
                {{"Number_Const_Name", 1}, {"For_Name", "Last row"}, {"Location_Name", "Below each row"},
                    {"As_Name", "User defined row(s)"}},
                {"x|1", "y|2", "---|---"}, {}, "1 new row added"},
            {"copies", input, counted + OptionSettings{{"As_Name", "Copied row(s)"}},
                {"x|1", "x|1", "y|2", "y|2", "y|2"}, {}, "3 new rows added"},
            {"where any column matches", input,
                two + OptionSettings{{"For_Name", "Rows where"}, {"Match_Value_Name", "Y"}}, {"x|1", "|", "|", "y|2"},
                {}, "2 new rows added"},
            {"where case counts", input,
                two
                    + OptionSettings{{"For_Name", "Rows where"}, {"Match_Value_Name", "Y"},
                        {"Match_Case_Sensitive", true}},
                input.mid(1), {}, "No changes"},
            {"where a column equals nothing", {"a|n", "x|", "|1"},
                two
                    + OptionSettings{{"For_Name", "Rows where"}, {"Match_Column_Name", "n"},
                        {"As_Name", "User defined row(s)"}, {"User_Defined_Row_Value", "a line between"}},
                {"a line between|a line between", "a line between|a line between", "x|", "|1"},
                {"1 option not set ('Value')"}, "2 new rows added"},
            {"numbers that are none", {"a|n", "x|-1", "y|1.5", "z|1", "|", "|q", "|r", "|s", "|t"}, counted,
                {"x|-1", "y|1.5", "|", "z|1", "|", "|q", "|r", "|s", "|t"},
                {"'n' has 6 non-numeric values:\n'1.5' at column 'n' row 2\n'' at column 'n' row 4\n"
                 "'q' at column 'n' row 5\n'r' at column 'n' row 6\n's' at column 'n' row 7\n+ 1 other",
                    "'n' has 1 negative value:\n'-1' at column 'n' row 1"},
                "1 new row added"},
            {"no number column", input, {{"Number_How_Name", "Set from a column"}}, input.mid(1),
                {"1 option not set ('Number column')"}, "No changes"},
            {"more rows than any table has", {"a|n", "x|999999999999", "y|2000000000"}, counted,
                {"x|999999999999", "y|2000000000"}, {"Too many cells (2 cols x 4,147,483,649 rows)"}, "Too many cells"},
        });
}

TEST(AddedRows, OptionsApplyWhereTheyAreRead)
{
    const TransformRun sequence = runTransform(
        "Sequence", {{"How_Name", "Missing dates"}, {"Maximum_Missing_type", "User defined"}}, {column("1")});
    const QList<QPair<QString, bool>> ofSequence{{"User_Define_Minimum_Missing_Int", false},
        {"User_Define_Minimum_Missing_Date", false}, {"User_Define_Maximum_Missing_Int", false},
        {"User_Define_Maximum_Missing_Date", true}, {"User_Defined_Row_Value", false}};
    EXPECT_EQ(sequence.transform->parameterStates(), ofSequence);
    EXPECT_EQ(sequence.transform->parameter("User_Define_Maximum_Missing_Date")->toDate(), QDate::currentDate());
    const TransformRun newRows = runTransform("New_Rows", {{"For_Name", "Rows where"}}, {column("1")});
    const QList<QPair<QString, bool>> ofNewRows{{"Number_Col_Name", false}, {"Number_Const_Name", true},
        {"User_Defined_Row_Value", false}, {"Match_Column_Name", true}, {"Match_Type_Name", true},
        {"Match_Value_Name", true}, {"Match_Case_Sensitive", true}};
    EXPECT_EQ(newRows.transform->parameterStates(), ofNewRows);
}

} // namespace
