#include "inputs/schemacheck.h"

#include "support/grid.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

struct SchemaCase
{
    const char *what;
    QStringList columns; // of the schema
    std::function<void(InputSchema &)> change;
    QStringList input;
    bool ok;
    QStringList output;
    QStringList warnings;
    QStringList before; // the lines of each column; none when the schema is met or unused
    QStringList after;
};

void keep(InputSchema &) {}

QStringList lines(const Dataset &dataset)
{
    return QStringList(dataset.header().join('|')) + rows(dataset);
}

/// All that is told of a table that differs.
QStringList infosOf(const SchemaCase &c)
{
    QStringList infos{"Input does not match schema", "Before schema:"};
    infos += c.before;
    if (c.ok) {
        infos.append("After schema:");
        infos += c.after;
    }
    return infos;
}

} // namespace

TEST(SchemaCheck, BringsATableIntoOrderOrRefusesIt)
{
    const auto strict = [](InputSchema &s) {
        s.missingMode = InputSchema::MissingIsError;
        s.reorderMode = InputSchema::OrderIsError;
        s.extraMode = InputSchema::ExtraIsError;
    };
    const SchemaCase cases[] = {
        {"columns in reverse order come in the schema's, with a line for each that moved", {"a", "b", "c"}, keep,
            {"c|b|a", "3|2|1"}, true, {"a|b|c", "1|2|3"},
            {"Schema change: Moved column 'a' from position 3 to position 1",
                "Schema change: Moved column 'c' from position 1 to position 3"},
            {"Column position=1 name='c' [Out of order, moved to position 3]", "Column position=2 name='b' [No change]",
                "Column position=3 name='a' [Out of order, moved to position 1]"},
            {"Column position=1 name='a' [Out of order, moved from position 3]",
                "Column position=2 name='b' [No change]",
                "Column position=3 name='c' [Out of order, moved from position 1]"}},
        {"a missing column gets the value of its place and moves those behind it", {"a", "b", "c"},
            [](InputSchema &s) {
                s.missingValues = QStringList{"-", "none", "?"};
            },
            {"a|c", "1|3", "4|6"}, true, {"a|b|c", "1|none|3", "4|none|6"},
            {"Schema change: Added missing column 'b' with values 'none' to position 2",
                "Schema change: Moved column 'c' from position 2 to position 3"},
            {"Column position=1 name='a' [No change]",
                "Column position=2 name='c' [Out of order, moved to position 3]"},
            {"Column position=1 name='a' [No change]", "Column position=2 name='b' [Added missing]",
                "Column position=3 name='c' [Out of order, moved from position 2]"}},
        {"a single missing value is for all", {"a", "b", "c"},
            [](InputSchema &s) { s.missingValues = QStringList("x"); }, {"a", "1"}, true, {"a|b|c", "1|x|x"},
            {"Schema change: Added missing column 'b' with values 'x' to position 2",
                "Schema change: Added missing column 'c' with values 'x' to position 3"},
            {"Column position=1 name='a' [No change]"},
            {"Column position=1 name='a' [No change]", "Column position=2 name='b' [Added missing]",
                "Column position=3 name='c' [Added missing]"}},
        {"extra columns go behind the schema's", {"b"}, keep, {"a|b|c", "1|2|3"}, true, {"b|a|c", "2|1|3"},
            {"Schema change: Moved column 'b' from position 2 to position 1",
                "Schema change: Added extra column 'a' from position 1 to position 2",
                "Schema change: Added extra column 'c' from position 3 to position 3"},
            {"Column position=1 name='a' [Extra, added to position 2]",
                "Column position=2 name='b' [Out of order, moved to position 1]",
                "Column position=3 name='c' [Extra, added to position 3]"},
            {"Column position=1 name='b' [Out of order, moved from position 2]",
                "Column position=2 name='a' [Extra, added from position 1]",
                "Column position=3 name='c' [Extra, added from position 3]"}},
        {"or are left out", {"a"}, [](InputSchema &s) { s.extraMode = InputSchema::IgnoreExtra; }, {"a|b", "1|2"}, true,
            {"a", "1"}, {"Schema change: Ignored extra column 'b' at position 2"},
            {"Column position=1 name='a' [No change]", "Column position=2 name='b' [Ignored]"},
            {"Column position=1 name='a' [No change]"}},
        {"as errors all are told before the check fails, and the table stays", {"a", "b", "c"}, strict,
            {"a|d|b", "1|2|3"}, false, {"a|d|b", "1|2|3"},
            {"Schema error: Column 'b' at position 3 when 2 expected", "Schema error: Missing column 'c'",
                "Schema error: Extra column 'd' at position 2", "Schema validation failed"},
            {"Column position=1 name='a' [No change]", "Column position=2 name='d' [Extra]",
                "Column position=3 name='b' [Out of order]"},
            {}},
        {"a name that occurs twice takes the first that is left each time", {"a", "b", "a"}, keep,
            {"b|a|a|a", "1|2|3|4"}, true, {"a|b|a|a", "2|1|3|4"},
            {"Schema change: Moved column 'a' from position 2 to position 1",
                "Schema change: Moved column 'b' from position 1 to position 2",
                "Schema change: Added extra column 'a' from position 4 to position 4"},
            {"Column position=1 name='b' [Out of order, moved to position 2]",
                "Column position=2 name='a' [Out of order, moved to position 1]",
                "Column position=3 name='a' [No change]", "Column position=4 name='a' [Extra, added to position 4]"},
            {"Column position=1 name='a' [Out of order, moved from position 2]",
                "Column position=2 name='b' [Out of order, moved from position 1]",
                "Column position=3 name='a' [No change]", "Column position=4 name='a' [Extra, added from position 4]"}},
        {"case and blanks count", {"a "}, [](InputSchema &s) { s.extraMode = InputSchema::IgnoreExtra; }, {"A", "1"},
            true, {"a ", ""},
            {"Schema change: Added missing column 'a ' with values '' to position 1",
                "Schema change: Ignored extra column 'A' at position 1"},
            {"Column position=1 name='A' [Ignored]"}, {"Column position=1 name='a ' [Added missing]"}},
        {"with an empty schema every column is extra", {}, keep, {"a", "1"}, true, {"a", "1"},
            {"Schema change: Added extra column 'a' from position 1 to position 1"},
            {"Column position=1 name='a' [Extra, added to position 1]"},
            {"Column position=1 name='a' [Extra, added from position 1]"}},
    };
    for (const SchemaCase &c : cases) {
        SCOPED_TRACE(c.what);
        InputSchema schema;
        schema.inUse = true;
        schema.columnNames = c.columns;
        c.change(schema);
        Dataset dataset = grid(c.input);
        SchemaCheck check(schema);
        EXPECT_EQ(check.run(&dataset), c.ok);
        EXPECT_EQ(lines(dataset), c.output);
        EXPECT_EQ(check.warnings(), c.warnings);
        EXPECT_EQ(check.infos(), infosOf(c));
    }
}

TEST(SchemaCheck, SaysLittleOfATableThatFits)
{
    InputSchema schema;
    schema.columnNames = QStringList{"1", "2"};
    Dataset dataset = plainGrid({"x|y"});
    SchemaCheck unused(schema);
    EXPECT_TRUE(unused.run(&dataset));
    EXPECT_EQ(unused.infos(), QStringList());
    schema.inUse = true;
    SchemaCheck used(schema);
    EXPECT_TRUE(used.run(&dataset));
    EXPECT_EQ(used.infos(), QStringList("Input matches schema"));
    EXPECT_EQ(used.warnings(), QStringList());
    EXPECT_EQ(rows(dataset), QStringList("x|y"));
}

TEST(SchemaCheck, NamesColumnsWithoutHeaderByNumber)
{
    InputSchema schema;
    schema.inUse = true;
    schema.columnNames = QStringList{"2", "1"};
    Dataset dataset = plainGrid({"x|y"});
    EXPECT_TRUE(SchemaCheck(schema).run(&dataset));
    EXPECT_FALSE(dataset.hasHeader());
    EXPECT_EQ(rows(dataset), QStringList("y|x"));

    // A header with an empty name keeps telling the columns apart.
    dataset = grid({"|b", "x|y"});
    schema.columnNames = QStringList{"b", "1"};
    EXPECT_TRUE(SchemaCheck(schema).run(&dataset));
    EXPECT_EQ(dataset.header(), (QStringList{"b", "1"}));
    EXPECT_EQ(rows(dataset), QStringList("y|x"));
}

TEST(SchemaCheck, AddsColumnsToATableWithoutRows)
{
    InputSchema schema;
    schema.inUse = true;
    schema.columnNames = QStringList{"a", "b"};
    Dataset empty;
    empty.setHasHeader(true);
    EXPECT_TRUE(SchemaCheck(schema).run(&empty));
    EXPECT_EQ(empty.columnNames(), schema.columnNames);
    EXPECT_EQ(empty.rowCount(), 0);
}
