#include "nestedtables.h"
#include "outputs/jsonwriter.h"
#include "outputs/outputenums.h"
#include "outputs/textlayout.h"
#include "plainjson.h"
#include "support/grid.h"
#include "support/scopedlocale.h"
#include "written.h"

namespace {

struct Json
{
    std::string text;
    CappedList issues;
};

Json json(
    const Dataset &table, const JsonColumnTypes &types, bool removeEmpty = true, const QByteArray &lineEnding = "\n")
{
    TextLayout layout;
    layout.lineEnding = lineEnding;
    Json result;
    result.text = written(
        [&](TextSink &sink) { result.issues = JsonWriter::write(sink, table, types, removeEmpty, layout); });
    return result;
}

JsonColumnTypes automatic(const Dataset &table)
{
    return automaticJsonTypes(table, JsonTypeMode::Automatic, {});
}

} // namespace

TEST(JsonWriter, NestsByThePointsInNames)
{
    struct
    {
        const char *what;
        Dataset table;
        bool removeEmpty;
        const char *text;
    } const cases[] = {
        {"a row is an object, an empty value goes", grid({"name|age", "Ann|30", "Bob, Jr|"}), true,
            "[\n  {\n    \"name\": \"Ann\",\n    \"age\": 30\n  },\n  {\n    \"name\": \"Bob, Jr\"\n  }\n]\n"},
        {"names with a common beginning share an object", grid({"a.b|a.c", "1|x"}), true,
            "[\n  {\n    \"a\": {\n      \"b\": 1,\n      \"c\": \"x\"\n    }\n  }\n]\n"},
        {"a part without a name is a name", grid({".x|a..b|n.", "p|q|r"}), true,
            "[\n  {\n    \"\": {\n      \"x\": \"p\"\n    },\n    \"a\": {\n      \"\": {\n        \"b\": \"q\"\n"
            "      }\n    },\n    \"n\": {\n      \"\": \"r\"\n    }\n  }\n]\n"},
        {"no rows", grid({"a"}), true, "[\n]\n"},
        {"a row of empty values vanishes, with its comma", grid({"a|b.c", "1|2", "|"}), true,
            "[\n  {\n    \"a\": 1,\n    \"b\": {\n      \"c\": 2\n    }\n  }\n]\n"},
        {"or is kept", grid({"a|b", "x|y", "|"}), false,
            "[\n  {\n    \"a\": \"x\",\n    \"b\": \"y\"\n  },\n  {\n    \"a\": \"\",\n    \"b\": \"\"\n  }\n]\n"},
        {"the value of a node with children is dropped", grid({"a|a.b", "x|y"}), true,
            "[\n  {\n    \"a\": {\n      \"b\": \"y\"\n    }\n  }\n]\n"},
        {"and comes back where the children are gone", grid({"a|a.b", "x|y", "z|"}), true,
            "[\n  {\n    \"a\": {\n      \"b\": \"y\"\n    }\n  },\n  {\n    \"a\": \"z\"\n  }\n]\n"},
        {"the other way round they are siblings", grid({"a.b|a", "x|y"}), true,
            "[\n  {\n    \"a\": {\n      \"b\": \"x\"\n    },\n    \"a\": \"y\"\n  }\n]\n"},
        {"equal names are siblings; the first takes the children", grid({"a|a|a.b", "x|y|z"}), true,
            "[\n  {\n    \"a\": {\n      \"b\": \"z\"\n    },\n    \"a\": \"y\"\n  }\n]\n"},
        {"a point makes an object that is returned to", grid({"a.x|b|a.y", "p|q|r"}), true,
            "[\n  {\n    \"a\": {\n      \"x\": \"p\",\n      \"y\": \"r\"\n    },\n    \"b\": \"q\"\n  }\n]\n"},
        {"names without a header are numbers", plainGrid({"x|y"}), true,
            "[\n  {\n    \"1\": \"x\",\n    \"2\": \"y\"\n  }\n]\n"},
        {"texts and names are escaped", grid({"a/\"b", "\\/\"\b\f\n\r\t\x01'"}), true,
            "[\n  {\n    \"a\\/\\\"b\": \"\\\\\\/\\\"\\b\\f\\n\\r\\t\x01'\"\n  }\n]\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(json(c.table, automatic(c.table), c.removeEmpty).text, c.text);
    }
}

TEST(JsonWriter, WritesValuesByTheirTypesOrNull)
{
    const int boolean = JsonColumnType::Boolean;
    const int number = JsonColumnType::Number;
    struct
    {
        const char *what;
        int type;
        const char *value;
        const char *text;
        QStringList issues;
    } const cases[] = {
        {"a truth in any case, with blanks", boolean, " TRUE ", "true", {}},
        {"a number is true", boolean, "-2,5", "true", {}},
        {"zero is false", boolean, "0", "false", {}},
        {"no number is no truth", boolean, "yes", "null", {"'yes' not of type Boolean in column 1."}},
        {"nor is infinity", boolean, "inf", "null", {"'inf' not of type Boolean in column 1."}},
        {"nor nothing", boolean, "", "null", {"'' not of type Boolean in column 1."}},
        {"a number stays as it stands, blanks included", number, " -1.50e+3\t", " -1.50e+3\t", {}},
        {"the locale doesn't count", number, "1,5", "null", {"'1,5' not of type Number in column 1."}},
        {"zeros in front make no number", number, "007", "null", {"'007' not of type Number in column 1."}},
        {"an empty text is no number", number, "", "null", {"'' not of type Number in column 1."}},
        {"raw data is left alone", JsonColumnType::RawData, "{\"a\": [1, 2]}", "{\"a\": [1, 2]}", {}},
        {"a text of a column without a type", JsonColumnType::Automatic, "7", "\"7\"", {}},
        {"a percent sign is no place for anything", number, "%2%3", "null", {"'%2%3' not of type Number in column 1."}},
    };
    const ScopedLocale german("de_DE");
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const Json result = json(grid({"a", c.value}), {{0, c.type}}, false);
        EXPECT_EQ(result.text, std::string("[\n  {\n    \"a\": ") + c.text + "\n  }\n]\n");
        EXPECT_EQ(result.issues.texts(), c.issues);
    }
}

TEST(JsonWriter, CountsAllIssuesAndListsFive)
{
    const Json result = json(grid({"a|b", "1|u", "2|v", "3|w", "4|x", "5|y", "6|z"}), {{1, JsonColumnType::Number}});
    EXPECT_EQ(result.issues.count(), 6);
    EXPECT_EQ(
        result.issues.texts(), QStringList({"'u' not of type Number in column 2.",
                                   "'v' not of type Number in column 2.", "'w' not of type Number in column 2.",
                                   "'x' not of type Number in column 2.", "'y' not of type Number in column 2."}));
}

TEST(JsonColumnTypes, AreJudgedByTheFirstHundredRows)
{
    QStringList late{"a"};
    for (int i = 0; i < 100; ++i) {
        late.append("1");
    }
    late.append("x");
    struct
    {
        const char *what;
        Dataset table;
        int mode;
        QHash<ColumnId, int> chosen;
        int type;
    } const cases[] = {
        {"numbers with gaps", grid({"a", "", "1", "-2.5e3", " "}), JsonTypeMode::Automatic, {}, JsonColumnType::Number},
        {"a zero in front is no number", grid({"a", "1", "007"}), JsonTypeMode::Automatic, {}, JsonColumnType::String},
        {"truths", grid({"a", "True", "", " false"}), JsonTypeMode::Automatic, {}, JsonColumnType::Boolean},
        {"a blank isn't one", grid({"a", "true", " "}), JsonTypeMode::Automatic, {}, JsonColumnType::String},
        {"numbers aren't truths", grid({"a", "true", "1"}), JsonTypeMode::Automatic, {}, JsonColumnType::String},
        {"nothing at all", grid({"a", "", ""}), JsonTypeMode::Automatic, {}, JsonColumnType::String},
        {"row 101 isn't looked at", grid(late), JsonTypeMode::Automatic, {}, JsonColumnType::Number},
        {"all are strings", grid({"a", "1"}), JsonTypeMode::String, {{ColumnId(1, 1), JsonColumnType::Number}},
            JsonColumnType::String},
        {"chosen by hand", grid({"a", "1"}), JsonTypeMode::Manual, {{ColumnId(1, 1), JsonColumnType::RawData}},
            JsonColumnType::RawData},
        {"left to be judged", grid({"a", "1"}), JsonTypeMode::Manual, {{ColumnId(1, 2), JsonColumnType::RawData}},
            JsonColumnType::Number},
        {"a choice from another mode", grid({"a", "1"}), JsonTypeMode::Automatic,
            {{ColumnId(1, 1), JsonColumnType::RawData}}, JsonColumnType::Number},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        Dataset table = c.table;
        table.assignColumnIds(1);
        EXPECT_EQ(automaticJsonTypes(table, c.mode, c.chosen), JsonColumnTypes({{0, c.type}}));
    }
}

TEST(JsonWriter, WritesWhatTheTreeOfAllRowsGives)
{
    NestedTables tables(7);
    for (int i = 0; i < 8000; ++i) {
        const Dataset table = tables.next();
        JsonColumnTypes types;
        for (int column = 0; column < table.columnCount(); ++column) {
            types.insert(column, tables.below(5));
        }
        const bool removeEmpty = tables.below(2) == 0;
        const Json fast = json(table, types, removeEmpty, "\r\n");
        const PlainJson plain(table, types, removeEmpty, "\r\n");
        ASSERT_EQ(fast.text, written([&](TextSink &sink) { sink.append(plain.text); }))
            << "table " << i << ": " << table.columnNames().join('|').toStdString();
        ASSERT_EQ(fast.issues.texts(), plain.issues.texts()) << "table " << i;
        ASSERT_EQ(fast.issues.count(), plain.issues.count()) << "table " << i;
    }
}

TEST(JsonWriter, WritesTextsLargerThanTheBuffer)
{
    const QString plain(3 * TextSink::bufferSize, 'x');
    QString special = plain;
    special.replace(TextSink::bufferSize, 1, "/");
    const Dataset table = grid({"a|b", plain + "|" + special});
    const PlainJson expected(table, {}, true, "\n");
    EXPECT_TRUE(json(table, {}).text == expected.text.toStdString());
}

TEST(JsonWriter, SurvivesNamesThatNestVeryDeeply)
{
    const int depth = 2000;
    const std::string text = json(grid({QString(depth, '.'), "1"}), {}).text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '{'), depth + 1);
    EXPECT_EQ(std::count(text.begin(), text.end(), '}'), depth + 1);
}
