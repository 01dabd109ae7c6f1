#include "data/matchoperator.h"
#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedsettings.h"
#include "transforms/options/records.h"

#include <gtest/gtest.h>

namespace {

struct SplitCase
{
    const char *what;
    OptionSettings options;
    QStringList cells;
    QStringList header; ///< of the new columns
    QStringList rows;   ///< without the source column
    const char *resultText;
    QStringList infos;
    QStringList warnings;
};

QVariant record(int mode, int times, int every, ColumnId start, int op = 0, const QString &text = QString())
{
    SplitRowsRecord value;
    value.mode = mode;
    value.times = times;
    value.every = every;
    value.startColumn = start;
    value.op = op;
    value.text = text;
    return QVariant::fromValue(value);
}

} // namespace

TEST(TransformSplit, IntoColumnsAndVectors)
{
    const SplitCase cases[] = {
        {"empty parts go", {{"Delimiter", ","}}, {"a,b,,c", ""}, {"Value1", "Value2", "Value3"}, {"a|b|c", "||"},
            "3 cols added", {}, {}},
        {"empty parts stay", {{"Delimiter", ","}, {"Keep_Empty", true}}, {"a,b,,c"},
            {"Value1", "Value2", "Value3", "Value4"}, {"a|b||c"}, "4 cols added", {}, {}},
        {"a delimiter of several characters", {{"Delimiter", "é;"}}, {"aé;b;c", "é;x"}, {"Value1", "Value2"},
            {"a|b;c", "x|"}, "2 cols added", {}, {}},
        {"without a delimiter a value is one part", {}, {"a,b"}, {"Value1"}, {"a,b"}, "1 col added", {},
            {"1 option not set ('Delimiter')"}},
        {"a regular expression", {{"Delimiter_Type", "Regex delimiter"}, {"Delimiter", "[0-9]+"}}, {"a1b22c"},
            {"Value1", "Value2", "Value3"}, {"a|b|c"}, "3 cols added", {}, {}},
        {"an expression that doesn't compile cuts nothing",
            {{"Delimiter_Type", "Regex delimiter"}, {"Delimiter", "(["}}, {"a(["}, {"Value1"}, {"a(["}, "1 col added",
            {}, {"Not a valid regular expression: '([' (missing terminating ] for character class)"}},
        {"alphabetic order", {{"Delimiter", " "}, {"Order", "Alphabetic"}}, {"c a b"}, {"Value1", "Value2", "Value3"},
            {"a|b|c"}, "3 cols added", {}, {}},
        {"reverse order of what is left after truncation",
            {{"Delimiter", " "}, {"Order", "Reverse"}, {"Max_New_Cols", 2}}, {"a b c"}, {"Value1", "Value2"}, {"b|a"},
            "2 cols added", {"1 row split into more than 'Max. values'=2 value(s), so truncated to 2 value(s)"}, {}},
        {"padded to the least", {{"Delimiter", ","}, {"Min_New_Cols", 3}}, {"a,b", "a,b,c"},
            {"Value1", "Value2", "Value3"}, {"a|b|", "a|b|c"}, "3 cols added",
            {"1 row split into less than 'Min. values'=3 value(s), so padded to 3 value(s)"}, {}},
        {"a most below the least counts for nothing", {{"Delimiter", ","}, {"Min_New_Cols", 2}, {"Max_New_Cols", 1}},
            {"a,b,c"}, {"Value1", "Value2", "Value3"}, {"a|b|c"}, "3 cols added", {},
            {"'Max. values' is less than 'Min. values'"}},
        {"lengths with skipped pieces and a rest", {{"Delimiter_Type", "Lengths"}, {"Lengths", "-3,5,-4,*"}},
            {"abcDEFGHijklMNOP", "abcD"}, {"Value1", "Value2"}, {"DEFGH|MNOP", "D|"}, "2 cols added", {}, {}},
        {"the ends of a value", {{"Delimiter_Type", "Lengths"}, {"Lengths", "2,-*,2"}}, {"abcdef", "abc"},
            {"Value1", "Value2"}, {"ab|ef", "ab|c"}, "2 cols added", {}, {}},
        {"an empty piece keeps its place", {{"Delimiter_Type", "Lengths"}, {"Lengths", "2,*,2"}}, {"abcdef", "abc", ""},
            {"Value1", "Value2", "Value3"}, {"ab|cd|ef", "ab||c", "||"}, "3 cols added", {}, {}},
        {"pieces behind the rest are counted from the end", {{"Delimiter_Type", "Lengths"}, {"Lengths", "1,*,2,3"}},
            {"abcdefg", "abcd", "a"}, {"Value1", "Value2", "Value3", "Value4"}, {"a|b|cd|efg", "a|||bcd", "a|||"},
            "4 cols added", {}, {}},
        {"two rests are refused", {{"Delimiter_Type", "Lengths"}, {"Lengths", "*,x,-*"}}, {"abc"}, {}, {""},
            "No changes", {}, {"Badly formed 'Lengths' string: Only 1 '*' or '-*' allowed, unexpected token 'x'"}},
        {"counts", {{"Delimiter", " "}, {"Into", "Count vectors"}}, {"a b a", "", "c"}, {"a", "b", "c"},
            {"2|1|0", "0|0|0", "0|0|1"}, "3 cols added", {"3 distinct value(s) found in column 'Value'"}, {}},
        {"whether a part occurs, at most so many",
            {{"Delimiter", " "}, {"Into", "Multi hot encoding"}, {"Max_New_Cols", 2}}, {"a b a", "c"}, {"a", "b"},
            {"1|1", "0|0"}, "2 cols added",
            {"3 distinct value(s) found in column 'Value'",
                "3 value(s) found, so 1 value(s) omitted to keep to maximum of 2 added column(s)"},
            {}},
        {"whole values, with columns to spare", {{"Into", "One hot encoding"}, {"Min_New_Cols", 3}}, {"a b", ""},
            {"a b", "(empty)", ""}, {"1|0|", "0|1|"}, "3 cols added",
            {"2 distinct value(s) found in column 'Value'",
                "2 value(s) found, so 1 column(s) added to keep to minimum of 3 added column(s)"},
            {}},
    };
    for (const SplitCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Split", OptionSettings{{"Columns", 1}} + c.options, {column(c.cells)});
        EXPECT_EQ(run.result.header().mid(1), c.header);
        EXPECT_EQ(run.result.columnValues(ColumnIndex(0)), c.cells) << "the source stays";
        QStringList added;
        for (const QString &row : rows(run.result)) {
            added.append(row.section('|', 1));
        }
        EXPECT_EQ(added, c.rows.isEmpty() ? c.cells : c.rows);
        EXPECT_EQ(run.resultText(), QString(c.resultText));
        EXPECT_EQ(run.infos(), c.infos);
        EXPECT_EQ(run.warnings(), c.warnings);
    }
}

TEST(TransformSplit, RefusesWhatMemoryCannotHold)
{
    for (const char *into : {"Columns", "Rows", "Count vectors"}) {
        SCOPED_TRACE(into);
        const TransformRun run = runTransform("Split",
            {{"Columns", 1}, {"Delimiter", ","}, {"Into", into}, {"Min_New_Cols", 900000000}}, {column({"a,b", "c"})});
        EXPECT_EQ(rows(run.result), (QStringList{"a,b", "c"}));
        EXPECT_EQ(run.warnings().size(), 2) << "the limits, and the refusal";
        EXPECT_TRUE(run.infos().isEmpty()) << "nothing was added";
    }
}

TEST(TransformSplit, IntoRows)
{
    const TransformRun run = runTransform(
        "Split", {{"Columns", 2}, {"Into", "Rows"}, {"Delimiter", ","}}, {grid({"k|v|w", "1|a,b|x", "2|c|y"})});
    EXPECT_EQ(rows(run.result), (QStringList{"1|a|x", "1|b|x", "2|c|y"}));
    EXPECT_EQ(run.resultText(), "2 rows split into 3");
}

TEST(TransformSplit, BytesAndTextsAgree)
{
    // An ordering that changes nothing takes the way by texts.
    const QStringList cells{"é,è,,ê", ",", "", "a", "𝄞,𝄢", "long text that is no short cell,another long text"};
    for (const bool keepEmpty : {false, true}) {
        const OptionSettings options{{"Columns", 1}, {"Delimiter", ","}, {"Keep_Empty", keepEmpty}};
        const Dataset plain = runOn("Split", options, column(cells));
        const Dataset reversed = runOn("Split", options + OptionSettings{{"Order", "Reverse"}}, column(cells));
        ASSERT_EQ(plain.columnCount(), reversed.columnCount());
        for (int row = 0; row < plain.rowCount(); ++row) {
            QStringList parts = plain.row(RowIndex(row)).mid(1);
            QStringList back = reversed.row(RowIndex(row)).mid(1);
            if (!keepEmpty) {
                parts.removeAll(QString());
                back.removeAll(QString());
            }
            std::reverse(back.begin(), back.end());
            if (keepEmpty) {
                back = back.mid(back.size() - cells.at(row).split(',').size())
                       + QStringList(back.mid(0, back.size() - cells.at(row).split(',').size()));
            }
            EXPECT_EQ(parts, back) << cells.at(row).toStdString();
        }
    }
}

TEST(TransformSplitRows, BreaksRows)
{
    const Dataset six = grid({"id|q1|id|q2|id|q3", "a|b|c|d|e|f", "1|2|3|4|5|6"});
    struct
    {
        const char *what;
        QVariant record;
        QStringList rows;
        const char *resultText;
    } const cases[] = {
        {"every two columns", record(2, 3, 2, ColumnId(1, 1)), {"a|b", "c|d", "e|f", "1|2", "3|4", "5|6"},
            "2 rows split into 6"},
        {"once from the third column", record(2, 1, 2, ColumnId(1, 3)), {"a|b||", "c|d|e|f", "1|2||", "3|4|5|6"},
            "2 rows split into 4"},
        {"where a name comes again", record(1, 1, 2, ColumnId()), {"a|b", "c|d", "e|f", "1|2", "3|4", "5|6"},
            "2 rows split into 6"},
        {"where a name ends with a text", record(0, 1, 2, ColumnId(), 3, "2"), {"a|b|c", "d|e|f", "1|2|3", "4|5|6"},
            "2 rows split into 4"},
        {"no break", record(0, 1, 2, ColumnId(), 1, "none"), {"a|b|c|d|e|f", "1|2|3|4|5|6"}, "No changes"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Split_Rows", {{"Split_Rows", c.record}}, {six});
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), QString(c.resultText));
    }
}

TEST(TransformSplitRows, ComparesNamesAsDates)
{
    ScopedSettings settings;
    settings->setDateFormatsText("d/M/yyyy\nyyyy-MM-dd");
    // As texts "2/1/2024" stands before "10/12/2023", as dates behind it.
    const Dataset input = grid({"9/12/2023|2/1/2024|2024-02-01|x", "a|b|c|d"});
    const QVariant later = record(0, 1, 2, ColumnId(), static_cast<int>(MatchOperator::GreaterThan), "10/12/2023");
    EXPECT_EQ(rows(runOn("Split_Rows", {{"Split_Rows", later}}, input)).mid(0, 2), (QStringList{"a", "b"}));
}

TEST(TransformConcatRows, JoinsRows)
{
    const Dataset input = grid({"k|v", "a|1", "a|2", "A|3", "b|4", "a|5"});
    const OptionSettings byKey{{"Mode", "By key"}, {"Key_Column", 1}};
    struct
    {
        const char *what;
        OptionSettings options;
        QStringList header;
        QStringList rows;
        const char *resultText;
    } const cases[] = {
        {"two rows at a time, the last padded", {}, {"k", "v", "k", "v"}, {"a|1|a|2", "A|3|b|4", "a|5||"},
            "5 rows concatenated into 3"},
        {"consecutive rows with a key", byKey, {"k", "v", "k", "v"}, {"a|1|a|2", "A|3||", "b|4||", "a|5||"},
            "5 rows concatenated into 4"},
        {"without case, the key once", byKey + OptionSettings{{"Case_Sensitive", false}, {"Repeat_Key_Column", false}},
            {"k", "v", "v", "v"}, {"a|1|2|3", "b|4||", "a|5||"}, "5 rows concatenated into 3"},
        {"until a value, which goes", {{"Mode", "Variable"}, {"Value", "a"}}, {"k", "v", "k", "v", "k"},
            {"1||||", "2|A|3|b|4", "5||||"}, "5 rows concatenated into 3"},
        {"until a value, which starts the new row",
            {{"Mode", "Variable"}, {"Value", "a"}, {"Concat_Value", "Add to row start"}},
            {"k", "v", "k", "v", "k", "v"}, {"a|1||||", "a|2|A|3|b|4", "a|5||||"}, "5 rows concatenated into 3"},
        {"until a value, which ends the old row",
            {{"Mode", "Variable"}, {"Value", "b"}, {"Concat_Value", "Add to row end"}},
            {"k", "v", "k", "v", "k", "v", "k"}, {"a|1|a|2|A|3|b", "4|a|5||||"}, "5 rows concatenated into 2"},
        {"while values are numbers",
            {{"Mode", "Variable"}, {"While_Or_Until", "While"}, {"Matches", "<   Less than"}, {"Value", "9"}}, {"k"},
            {"1", "2", "3", "4", "5"}, "5 rows concatenated into 5"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform("Concat_Rows", c.options, {input});
        EXPECT_EQ(run.result.header(), c.header);
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), QString(c.resultText));
    }
}

TEST(TransformConcatRows, IsAsWideAsAskedForAndComparesCells)
{
    const TransformRun one = runTransform("Concat_Rows", {{"Rows", 3}}, {grid({"a|b", "1|2"})});
    EXPECT_EQ(rows(one.result), QStringList{"1|2||||"});
    EXPECT_EQ(one.result.header(), (QStringList{"a", "b", "a", "b", "a", "b"}));
    EXPECT_EQ(one.resultText(), "1 rows concatenated into 1");

    const TransformRun none = runTransform("Concat_Rows", {{"Rows", 3}}, {grid({"a|b"})});
    EXPECT_EQ(none.result.header(), one.result.header()) << "the width doesn't depend on the rows";

    const TransformRun tooWide = runTransform("Concat_Rows", {{"Rows", 999999999}}, {grid({"a|b|c", "1|2|3"})});
    EXPECT_EQ(tooWide.result.columnCount(), 0);
    EXPECT_EQ(tooWide.warnings().size(), 1);

    const TransformRun same = runTransform("Concat_Rows",
        {{"Mode", "Variable"}, {"Value", "1"}, {"Concat_Value", "Add to row start"}}, {grid({"a|b", "1|2", "1|3"})});
    EXPECT_EQ(same.resultText(), "No changes");
    // As many rows and columns as before, but other cells.
    const TransformRun moved = runTransform(
        "Concat_Rows", {{"Mode", "Variable"}, {"Value", "x"}}, {grid({"a|b", "1|2", "x|3"})});
    EXPECT_EQ(rows(moved.result), (QStringList{"1|2", "3|"}));
    EXPECT_EQ(moved.resultText(), "2 rows concatenated into 2");
}

TEST(TransformSplitName, FindsTheParts)
{
    struct
    {
        const char *what;
        OptionSettings options;
        const char *name;
        QString parts;
    } const cases[] = {
        {"all parts", {}, "Dr John van der Berg Jr", "Dr|John||van der Berg|Jr"},
        {"titles with full stops and commas", {}, "Prof. Dr. Ann Mary Lee, PhD, MBA", "Prof. Dr.|Ann|Mary|Lee|PhD MBA"},
        {"two last names", {{"Num_Last", 2}}, "José Luis García Pérez", "|José|Luis|García Pérez|"},
        {"titles of one's own", {{"Custom_Title", "Hero, Big"}, {"Custom_Suffix", "DDR"}}, "BIG hero Bo Ek ddr",
            "BIG hero|Bo||Ek|ddr"},
        {"one word is a last name", {}, "Cher", "|||Cher|"},
        {"nothing", {}, "  ", "||||"},
        {"only first and last", {{"Title", false}, {"Middle", false}, {"Suffix", false}}, "Ann B Lee", "Ann|Lee"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const Dataset result = runOn("Split_Name", OptionSettings{{"Column", 1}} + c.options, column(c.name));
        EXPECT_EQ(rows(result).first().section('|', 1), c.parts);
    }
    const TransformRun run = runTransform("Split_Name", {{"Column", 1}}, {column(QStringList{"Ann Lee", "Bo Ek"})});
    EXPECT_EQ(run.result.header(), (QStringList{"Value", "Honorific", "First", "Middle", "Last", "Suffix"}));
    EXPECT_EQ(
        run.infos(), (QStringList{"2 empty Honorific value(s)", "2 empty Middle value(s)", "2 empty Suffix value(s)"}));
    EXPECT_EQ(run.resultText(), "5 cols added");
}
