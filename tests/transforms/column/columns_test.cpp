#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedsettings.h"
#include "transforms/frame/documentcontext.h"

#include <QDate>
#include <QHash>
#include <QRandomGenerator>
#include <QSet>
#include <climits>
#include <functional>
#include <gtest/gtest.h>

namespace {

struct ColumnCase
{
    const char *what;
    const char *kind;
    OptionSettings options;
    Dataset input;
    QStringList header;
    QStringList rows;
    const char *resultText;
    QStringList infos;
};

QVariant renames(const QHash<ColumnId, QString> &names)
{
    return QVariant::fromValue(names);
}

} // namespace

TEST(ColumnTransforms, GiveTheseTables)
{
    const Dataset ab = grid({"a|b", "1|x", "|y"});
    const ColumnCase cases[] = {
        {"copies stand at the right, by source", "Copy", {{"Columns", QVariantList{1, 2}}, {"Copies", 2}}, ab,
            {"a", "b", "a", "a", "b", "b"}, {"1|x|1|1|x|x", "|y|||y|y"}, "4 cols added", {}},
        {"no copies", "Copy", {{"Columns", QVariantList{1}}, {"Copies", 0}}, ab, {"a", "b"}, {"1|x", "|y"},
            "No changes", {}},
        {"a new column without a name", "New_Col", {{"New_Value", "v"}}, plainGrid({"1"}), {}, {"1|v"}, "1 col added",
            {}},
        {"a new column with a name", "New_Col", {{"New_Name", "n"}}, ab, {"a", "b", "n"}, {"1|x|", "|y|"},
            "1 col added", {}},
        {"unchecked columns go", "Remove", {{"Columns", QVariantList{2}}}, ab, {"b"}, {"x", "y"}, "1 col removed", {}},
        {"all columns are checked at first", "Remove", {}, ab, {"a", "b"}, {"1|x", "|y"}, "No changes", {}},
        {"an empty name keeps the number that stood for it", "Remove", {{"Columns", QVariantList{2}}},
            grid({"a|", "1|x"}), {"2"}, {"x"}, "1 col removed", {}},
        {"two columns may get one name", "Rename_Cols", {{"RenameColumns", renames({{ColumnId(1, 2), "a"}})}}, ab,
            {"a", "a"}, {"1|x", "|y"}, "1 col renamed", {"2 columns named 'a'"}},
        {"a table without header gets one", "Rename_Cols", {}, plainGrid({"p|q"}), {"1", "2"}, {"p|q"}, "No changes",
            {}},
        {"unknown columns come last", "Reorder", {{"Columns", QVariantList{3, 1}}}, grid({"a|b|c", "1|2|3"}),
            {"c", "a", "b"}, {"3|1|2"}, "3 cols reordered", {}},
        {"the same order", "Reorder", {{"Columns", QVariantList{1, 2}}}, ab, {"a", "b"}, {"1|x", "|y"}, "No changes",
            {}},
        {"joined without empty cells", "Concat", {{"Columns", QVariantList{1, 2}}, {"Delimiter", "-"}}, ab,
            {"a", "b", "a + b"}, {"1|x|1-x", "|y|y"}, "Concatenated 2 cols", {}},
        {"joined with empty cells", "Concat",
            {{"Columns", QVariantList{1, 2}}, {"Keep_Empty", true}, {"Auto_New_Name", false}, {"New_Name", "j"}}, ab,
            {"a", "b", "j"}, {"1|x|1,x", "|y|,y"}, "Concatenated 2 cols", {}},
        {"nothing to join", "Concat", {}, ab, {"a", "b", ""}, {"1|x|", "|y|"}, "No changes", {}},
        {"two rows become the header", "Header", {{"Num_Rows", 2}, {"Delimiter", " "}},
            grid({"p|q", "a|", "b|c", "1|2"}), {"a b", "c"}, {"1|2"}, "Header names updated, 2 rows removed", {}},
        {"appended to the header, more rows than there are", "Header", {{"Num_Rows", 9}, {"Mode", "Append"}},
            grid({"p|q", "a|"}), {"pa", "q"}, {}, "Header names updated, 1 row removed", {}},
        {"numbers that rise by two every second row", "Row_Num",
            {{"Start_At", -3}, {"Increment", 2}, {"Every", 2}, {"New_Name", ""}}, plainGrid({"a", "b", "c", "d", "e"}),
            {}, {"a|-3", "b|-3", "c|-1", "d|-1", "e|1"}, "5 rows numbered", {}},
        {"the same again", "Clone", {}, ab, {"a", "b"}, {"1|x", "|y"}, "Cloned", {}},
        {"rows and columns change places", "Transpose", {}, ab, {}, {"a|1|", "b|x|y"}, "Transposed", {}},
        {"the first column becomes the header", "Transpose", {{"Header", true}}, plainGrid({"h|i", "1|2"}), {"h", "1"},
            {"i|2"}, "Transposed", {}},
        {"a stamp in front", "Stamp", {{"Format", "!now"}}, ab, {"a", "b"}, {"now|", "1|x", "|y"}, "1 row added", {}},
        {"a stamp behind", "Stamp", {{"Format", "!now"}, {"Position", "At end"}}, ab, {"a", "b"}, {"1|x", "|y", "now|"},
            "1 row added", {}},
        {"a stamp in every row", "Stamp", {{"Format", "!yyyy!"}, {"Position", "Every row"}, {"New_Name", "s"}}, ab,
            {"a", "b", "s"}, {"1|x|yyyy!", "|y|yyyy!"}, "1 col added", {}},
        {"a stamp for a table without rows", "Stamp", {{"Format", "!now"}}, grid({"a|b"}), {"a"}, {"now"},
            "Stamp added", {}},
        {"one pseudonym for one row", "Pseudonym", {{"Column", 1}}, column("secret"), {"Value", "Pseudonym-Value"},
            {"secret|ID-1"}, "1 row pseudonymized", {"1 row pseudonymized with 1 pseudonym "}},
        {"no column to hide", "Pseudonym", {{"Auto_New_Name", true}}, ab, {"a", "b", "Pseudonym"}, {"1|x|", "|y|"},
            "0 rows pseudonymized", {}},
        {"a text of one part needs no draw", "Random", {{"Type", "Text"}, {"Text_Values", "one"}}, column("x"),
            {"Value", "Random"}, {"x|one"}, "1 col added", {}},
    };
    for (const ColumnCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TransformRun run = runTransform(c.kind, c.options, {c.input});
        EXPECT_EQ(run.result.header(), c.header);
        EXPECT_EQ(rows(run.result), c.rows);
        EXPECT_EQ(run.resultText(), QString(c.resultText));
        EXPECT_EQ(run.infos(), c.infos);
    }
}

TEST(TransformStamp, NamesTheDocument)
{
    DocumentContext::setPath(QStringLiteral("/home/ann/flow.transform"));
    const Dataset stamped = runOn("Stamp", {{"Format", "'at' $(f)"}}, column("x"));
    DocumentContext::setPath(QString());
    EXPECT_EQ(stamped.value(RowIndex(0), ColumnIndex(0)), "at /home/ann/flow.transform");
}

TEST(TransformTranspose, RefusesWhatMemoryCannotHold)
{
    ScopedSettings settings;
    settings->setMaxMemoryUsage(1000.0 / (1024 * 1024 * 1024));
    const TransformRun run = runTransform("Transpose", {}, {grid({"a|b", "1|2", "3|4"})});
    EXPECT_FALSE(run.result.hasColumns());
    EXPECT_EQ(run.warnings(), QStringList{"Too many cells (3 cols x 2 rows)"});
    EXPECT_EQ(run.resultText(), "Too many cells");
}

TEST(TransformTranspose, TwiceGivesTheTableBack)
{
    const Dataset input = grid({"a|b", "1|x", "|a text of more than seven bytes"});
    const Dataset once = runOn("Transpose", {{"Header", true}}, input);
    const Dataset twice = runOn("Transpose", {{"Header", true}}, once);
    EXPECT_EQ(twice.header(), input.header());
    EXPECT_EQ(rows(twice), rows(input));
}

TEST(TransformRandom, DrawsByItsSeed)
{
    Dataset input = grid({"a"});
    input.setRowCount(50);
    struct
    {
        const char *what;
        OptionSettings options;
        std::function<QString(quint64)> value; ///< for a draw of 32 bits
    } const cases[] = {
        {"integers by the upper part of the product", {{"Type", "Integer"}, {"Minimum_Int", -5}, {"Maximum_Int", 9}},
            [](quint64 draw) { return QString::number(static_cast<int>(draw * 15 >> 32) - 5); }},
        {"the whole range of integers", {{"Type", "Integer"}, {"Minimum_Int", INT_MIN}, {"Maximum_Int", INT_MAX}},
            [](quint64 draw) { return QString::number(static_cast<qint64>(draw) + INT_MIN); }},
        {"texts, empty ones too", {{"Type", "Text"}, {"Text_Values", "a,,b"}},
            [](quint64 draw) {
                return QStringList{"a", "", "b"}.at(static_cast<int>(draw * 3 >> 32));
            }},
        {"dates, both ends included",
            {{"Type", "Date"}, {"Minimum_Date", QDate(2024, 2, 28)}, {"Maximum_Date", QDate(2024, 3, 1)},
                {"Date_Format", "d.M.yy"}},
            [](quint64 draw) {
                return QStringList{"28.2.24", "29.2.24", "1.3.24"}.at(static_cast<int>(draw * 3 >> 32));
            }},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const Dataset result = runOn("Random", OptionSettings{{"Seed", 7}} + c.options, input);
        QRandomGenerator generator(7);
        QStringList expected;
        for (int row = 0; row < result.rowCount(); ++row) {
            expected.append(c.value(generator.generate()));
        }
        EXPECT_EQ(result.columnValues(ColumnIndex(1)), expected);
    }
    const Dataset reals = runOn("Random", {{"Seed", 7}, {"Minimum_Real", -1.0}, {"Maximum_Real", 1.0}}, input);
    const double first = QRandomGenerator(7).generate() / 4294967296.0 * 2 - 1;
    EXPECT_NEAR(reals.value(RowIndex(0), ColumnIndex(1)).toDouble(), first, 1e-9) << "the first draw is the high word";
}

TEST(TransformRandom, ShowsARangeThatMakesNoSense)
{
    for (const OptionSettings &options :
        {OptionSettings{{"Minimum_Real", 1.0}}, OptionSettings{{"Type", "Integer"}, {"Maximum_Int", 0}},
            OptionSettings{{"Type", "Date"}, {"Maximum_Date", QDate(2000, 1, 1)}}}) {
        const TransformRun run = runTransform("Random", options, {column("x")});
        EXPECT_EQ(rows(run.result), QStringList{"x|Error: min >= max"});
        EXPECT_EQ(run.warnings(), QStringList{"'Minimum' is greater than 'Maximum'"});
    }
}

TEST(TransformPseudonym, GivesEachValueANumberOfItsOwn)
{
    QStringList cells;
    for (int i = 0; i < 1001; ++i) {
        cells.append(QString::number(i % 500));
    }
    const TransformRun run = runTransform("Pseudonym", {{"Column", 1}, {"Seed", 3}, {"Prefix", ""}}, {column(cells)});
    const QStringList names = run.result.columnValues(ColumnIndex(1));
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), 500);
    EXPECT_EQ(names.at(0).size(), 4);
    EXPECT_EQ(names.mid(0, 500), names.mid(500, 500));
    EXPECT_NE(names.mid(0, 3), (QStringList{"0001", "0002", "0003"})) << "the seed shuffles";
    const TransformRun again = runTransform("Pseudonym", {{"Column", 1}, {"Seed", 3}, {"Prefix", ""}}, {column(cells)});
    EXPECT_EQ(again.result.columnValues(ColumnIndex(1)), names);
    EXPECT_EQ(run.infos(), QStringList{"1,001 rows pseudonymized with 500 pseudonyms "});
}

TEST(TransformPseudonym, DrawsFromTheSortedValues)
{
    const QStringList cells{"d", "b", "a", "c"};
    const Dataset result = runOn("Pseudonym", {{"Column", 1}, {"Seed", 7}}, column(cells));
    QStringList left = cells;
    left.sort();
    QRandomGenerator generator(7);
    QHash<QString, QString> expected;
    for (int number = 1; !left.isEmpty(); ++number) {
        const quint64 span = static_cast<quint64>(left.size() - 1);
        const int pick = left.size() == 1 ? 0 : static_cast<int>(generator.generate() * span >> 32);
        expected.insert(left.takeAt(pick), QStringLiteral("ID-%1").arg(number));
    }
    for (int row = 0; row < cells.size(); ++row) {
        EXPECT_EQ(result.value(RowIndex(row), ColumnIndex(1)), expected.value(cells.at(row)));
    }
}
