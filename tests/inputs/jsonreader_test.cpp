#include "inputs/jsonreader.h"

#include "inputs/jsonreference.h"
#include "support/scopedlocale.h"

#include <QRegularExpression>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

constexpr TreeReadOptions longRows{1, true, true, true};
constexpr TreeReadOptions wideRows{0, true, true, true};
constexpr TreeReadOptions untouched{1, false, false, false};

void expectEqual(const TreeOutcome &read, const TreeOutcome &expected)
{
    EXPECT_EQ(read.done, expected.done);
    EXPECT_EQ(read.header, expected.header);
    EXPECT_EQ(read.rows, expected.rows);
    EXPECT_EQ(read.infos, expected.infos);
    QStringList warnings = read.warnings;
    if (read.done) {
        // The library's values have no digits to compare with.
        warnings = warnings.filter(QRegularExpression("^(?!.* read with other digits: )"));
    }
    EXPECT_EQ(warnings, expected.warnings);
}

struct TableCase
{
    const char *what;
    TreeReadOptions options;
    QByteArray text;
    QStringList header;
    QStringList rows;
};

TEST(JsonReader, MakesRowsOfTrees)
{
    const IgnoredLeaks leaks;
    const TableCase cases[] = {
        {"members come in the order of their keys, missing ones are empty", longRows,
            R"([{"b":1,"a":"x"},{"c":true,"a":null}])", {"a", "b", "c"}, {"x|1|", "null||true"}},
        {"one object a line needs no option", longRows, "{\"id\":1}\n\r\n {\"id\":2} \r{\"id\":3}", {"id"},
            {"1", "2", "3"}},
        {"a line may begin with a byte order mark", longRows, "{\"id\":1}\n\xEF\xBB\xBF{\"id\":2}", {"id"}, {"1", "2"}},
        {"numbers lose zeros and exponents", longRows, "[1.50, 1e3, -0, 0.10, 12345678901234567, 1E-7, 100]", {""},
            {"1.5", "1000", "0", "0.1", "12345678901234568", "0.0000001", "100"}},
        {"nested objects join their keys, points in keys become dashes", longRows,
            R"([{"a":{"b.c":{"d":1}},"":{"e":2}}])", {"e", "a.b-c.d"}, {"2|1"}},
        {"a wide array gives a column for each position", wideRows, R"([{"phones":["1","2"]},{"phones":["3"]}])",
            {"phones.0", "phones.1"}, {"1|2", "3|"}},
        {"a long array gives a row for each child", longRows, R"([{"a":1,"phones":["1","2"],"z":3}])",
            {"a", "phones", "z"}, {"1|1|3", "1|2|3"}},
        {"long arrays multiply", longRows, R"([{"a":[1,2],"b":[3,4,5]}])", {"a", "b"},
            {"1|3", "2|3", "1|4", "2|4", "1|5", "2|5"}},
        {"an empty array leaves the rows as they are", longRows, R"([{"a":[],"b":1}])", {"b"}, {"1"}},
        {"objects in a long array fill the same columns", longRows, R"([{"i":[{"x":1,"y":[2,3]},{"x":4}]}])",
            {"i.x", "i.y"}, {"1|2", "1|3", "4|"}},
        {"objects in a top-level object are rows, named in a column", longRows,
            R"({"b":{"x":1},"a":{"y":2,"z":{"u":5}}})", {"_ObjectName_", "y", "z.u", "x"}, {"a|2|5|", "b|||1"}},
        {"values beside such objects are a row of their own, before them", longRows, R"({"n":7,"a":{"x":1},"l":[1,2]})",
            {"_ObjectName_", "x", "l", "n"}, {"||1|7", "||2|7", "a|1||"}},
        {"such an object without members is a row as well", wideRows, R"({"a":{}})", {"_ObjectName_"}, {"a"}},
        {"objects that are elements of an array aren't such objects", longRows, R"([{"a":{"x":1}}])", {"a.x"}, {"1"}},
        {"of equal keys the last one counts, whatever it holds", longRows, R"([{"a":{"x":1},"b":2,"a":{"y":3}}])",
            {"a.y", "b"}, {"3|2"}},
        {"escapes in texts and keys", longRows, R"([{"k\u00e9":"a\"\\\/\u20AC\ud83d\ude00"}])", {"ké"},
            {QStringLiteral("a\"\\/€\U0001F600")}},
        {"whitespace goes where it is asked to", longRows, "[{\" a \":\"\\u00a0 x\\ty\\r\\n z \"}]", {"a"}, {"x y  z"}},
        {"and stays otherwise", untouched, "[{\" a \":\" x\\ty \"}]", {" a "}, {" x\ty "}},
        {"empty rows are kept when asked to", untouched, R"([{},{"a":""},{"a":1}])", {"a"}, {"", "", "1"}},
        {"an empty array has no rows", longRows, " [ ] ", {}, {}},
        {"what the library's parser takes beyond the standard", longRows, "[{\"a\":.5,\"b\":\"\\x\"}]", {"a", "b"},
            {"0.5|x"}},
    };
    for (const TableCase &c : cases) {
        SCOPED_TRACE(c.what);
        const TreeOutcome reading = readTree<JsonReader>(c.text, c.options);
        EXPECT_TRUE(reading.done);
        EXPECT_EQ(reading.header, c.header);
        EXPECT_EQ(reading.rows, c.rows);
        expectEqual(reading, referenceJson(c.text, c.options));
    }
}

TEST(JsonReader, TellsWhatIsWrong)
{
    const IgnoredLeaks leaks;
    const struct
    {
        const char *what;
        QByteArray text;
        QString warning;
    } cases[] = {
        {"an empty text has the parser's word for it", "", "Error parsing JSON: illegal value."},
        {"a value alone is no table", " 42\n", "Array or object expected at top-level in JSON"},
        {"an array that breaks off", "[{\"a\":1},{\"a\":", "Error parsing JSON: unterminated object at offset 14."},
        {"a line that isn't an object", "{\"a\":1}\n\n[1]\n",
            "Error parsing JSON lines: at line 3 offset 0: an object was expected"},
        {"a fault in a document of several lines", "{\r\n \"a\": 1,\n \"b\": tru\n}",
            "Error parsing JSON lines: at line 3 offset 9: illegal value"},
        {"objects of several lines one behind the other", "{\n \"a\": 1\n}\n{\n \"a\": 2\n}\n",
            "Error parsing JSON lines: at line 4 offset 0: more follows behind the first value"},
        {"in one line", "\n{\"a\":1} {\"a\":2}",
            "Error parsing JSON lines: at line 2 offset 8: more follows behind the first value"},
        {"arrays one behind the other", "[1,2]\r[3]",
            "Error parsing JSON lines: at line 2 offset 0: more follows behind the first value"},
        {"a fault in an array", "[1,\n2,\ntru]", "Error parsing JSON lines: at line 3 offset 1: illegal value"},
        {"a broken line", "{\"a\":1}\r\n{\"a\" 2}",
            "Error parsing JSON lines: at line 2 offset 6: missing name separator"},
        {"nesting without end", QByteArray(100000, '['),
            "Error parsing JSON: too deeply nested document at offset 1025."},
        {"the same in a line", "{\"a\":1}\n{\"a\":" + QByteArray(100000, '['),
            "Error parsing JSON lines: at line 2 offset 1029: too deeply nested document"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TreeOutcome reading = readTree<JsonReader>(c.text, longRows);
        EXPECT_FALSE(reading.done);
        EXPECT_EQ(reading.warnings, QStringList(c.warning));
        EXPECT_EQ(reading.header, QStringList());
    }
}

TEST(JsonReader, TellsWhichNumbersChangeTheirDigits)
{
    const IgnoredLeaks leaks;
    const QString limit = "9,007,199,254,740,992";
    const struct
    {
        const char *what;
        QByteArray text;
        QString warning;
    } cases[] = {
        {"whole numbers that a double holds", "[9007199254740992, -9007199254740994, 1e300, 1.5E+17, 0.1e20]", ""},
        {"one that it doesn't", "[9007199254740993]",
            "1 number above " + limit + " read with other digits: 9007199254740993"},
        {"fractions are another matter", "[0.12345678901234567890123]", ""},
        {"of many, the first five",
            "[-12345678901234567,12345678901234567.5,123456789012345671e1,1234567890123456789,"
            "36028797018963969,36028797018963971]",
            "6 numbers above " + limit
                + " read with other digits: -12345678901234567, 12345678901234567.5, "
                  "123456789012345671e1, 1234567890123456789, 36028797018963969 + 1 other"},
        {"counted once where its record brings new columns",
            R"([{"a":9007199254740993,"b":1},{"a":9007199254740993,"c":1}])",
            "2 numbers above " + limit + " read with other digits: 9007199254740993, 9007199254740993"},
        {"in lines", "{\"a\":9007199254740993}\n{\"a\":1}",
            "1 number above " + limit + " read with other digits: 9007199254740993"},
        {"in what only the library reads, but not in texts",
            R"([{"a":"\"9007199254740993","b":"\x"},{"a":-9007199254740993}])",
            "1 number above " + limit + " read with other digits: -9007199254740993"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TreeOutcome reading = readTree<JsonReader>(c.text, longRows);
        EXPECT_TRUE(reading.done);
        EXPECT_EQ(reading.warnings.join('|'), c.warning);
    }
}

TEST(JsonReader, KeepsAMarkThatATextBeginsWith)
{
    const IgnoredLeaks leaks;
    const QString mark(QChar(0xFEFF));
    for (const char *rest : {"", ",\"o\":\"\\x\""}) {
        SCOPED_TRACE(rest);
        const TreeOutcome reading = readTree<JsonReader>(QByteArray("\xEF\xBB\xBF[{\"m\":\"\xEF\xBB\xBF"
                                                                    "1\",\"n\":\"\xEF\xBB\xBF\"")
                                                             + rest + "}]",
            untouched);
        EXPECT_EQ(reading.header.mid(0, 2), (QStringList{"m", "n"}));
        EXPECT_EQ(reading.rows.value(0).section('|', 0, 1), mark + "1|" + mark);
    }
    EXPECT_EQ(readTree<JsonReader>("[{\"\xEF\xBB\xBFk\":1}]", untouched).header, QStringList(mark + "k"));
    EXPECT_EQ(readTree<JsonReader>("{\"a\":\"\xEF\xBB\xBFx\"}\n{\"a\":\"\\x\" 1}", untouched).warnings,
        QStringList("Error parsing JSON lines: at line 2 offset 11: unterminated object"));
}

TEST(JsonReader, DropsAndCountsEmptyRows)
{
    const TreeOutcome reading = readTree<JsonReader>(R"([{"a":" "},{"a":1},{},{"a":[]}])", longRows);
    EXPECT_EQ(reading.rows, QStringList("1"));
    EXPECT_EQ(reading.infos, QStringList("3 empty row(s) ignored"));
}

/// A random value of JSON, with much in it that parsers get wrong.
class RandomJson
{
public:
    explicit RandomJson(QRandomGenerator *random)
        : m_random(random)
    {
    }

    QByteArray value(int depth)
    {
        switch (below(depth > 0 ? 8 : 4)) {
        case 0:
            return number();
        case 1:
        case 2:
            return text(14);
        case 3:
            return pick({"true", "false", "null", "[]", "{}", "-0", "0.0", "1E5"});
        case 4:
        case 5:
            return list(depth, '[', ']');
        default:
            return list(depth, '{', '}');
        }
    }

    QByteArray object(int depth) { return list(depth, '{', '}'); }

    QByteArray number()
    {
        QByteArray text = below(3) ? QByteArray() : QByteArray("-");
        text += below(4) ? QByteArray::number(1 + below(9)) + digits(below(17)) : QByteArray("0");
        if (below(2)) {
            text += '.' + QByteArray::number(below(10)) + digits(below(17));
        }
        if (!below(6)) {
            text += pick({"e1", "E+2", "e-3", "e20", "e-20", "e300", "e-300", "e308", "e-310", "e400"});
        }
        return text;
    }

private:
    int below(int limit) { return static_cast<int>(m_random->bounded(limit)); }
    QByteArray pick(std::initializer_list<const char *> choices) { return choices.begin()[below(int(choices.size()))]; }

    QByteArray digits(int count)
    {
        QByteArray text;
        while (count-- > 0) {
            text += static_cast<char>('0' + (below(3) ? below(10) : 0));
        }
        return text;
    }

    QByteArray text(int longest)
    {
        QByteArray text("\"");
        for (int count = below(longest); count > 0; --count) {
            text += pick({"a", "b", " ", "7", ".", "-", "é", "€", "\U0001F600", "\xEF\xBF\xBD", "\\n", "\\\"", "\\\\",
                "\\u00a0", "\\u2028", "\\ud83d\\ude00", "\\ud800", "\\udc00", "\\u0000", "\u00a0", "\u3000", "\t"});
        }
        return text + '"';
    }

    QByteArray list(int depth, char open, char close)
    {
        QByteArray text(1, open);
        for (int i = 0, count = below(5); i < count; ++i) {
            text += i > 0 ? pick({",", ", ", " ,", ",\t"}) : QByteArray();
            if (open == '{') {
                text += below(4) ? pick({"\"a\"", "\"b\"", "\"c\"", "\" a\"", "\"x.y\"", "\"_ObjectName_\"", "\"\""})
                                 : this->text(4);
                text += pick({":", ": "});
            }
            text += value(depth - 1);
        }
        return text + close;
    }

    QRandomGenerator *m_random;
};

TreeReadOptions optionsFor(int i)
{
    return {i & 1, (i & 2) == 0, (i & 4) == 0, (i & 8) == 0};
}

int blockSizeFor(int i)
{
    return i % 2 ? 1 + i % 40 : 1 << 16;
}

constexpr int validInputs = 1000;
constexpr int brokenInputs = 3000;

TEST(JsonReader, AgreesWithTheLibraryOnRandomDocuments)
{
    const IgnoredLeaks leaks;
    QRandomGenerator random(20240817);
    RandomJson json(&random);
    for (int i = 0; i < validInputs && !testing::Test::HasFailure(); ++i) {
        QByteArray text;
        const bool lines = i % 3 == 0;
        text += i % 3 == 1 ? "[" : "";
        for (int count = 1 + i % 7; count > 0; --count) {
            text += lines ? json.object(3) : i % 3 == 1 ? json.value(3) : QByteArray();
            text += i % 3 == 1 && count > 1 ? "," : lines ? "\n" : "";
        }
        text += i % 3 == 1 ? QByteArray("]") : i % 3 == 2 ? json.object(4) : QByteArray();
        SCOPED_TRACE(text.toStdString());
        expectEqual(readTree<JsonReader>(text, optionsFor(i), blockSizeFor(i)), referenceJson(text, optionsFor(i)));
    }
}

TEST(JsonReader, AgreesWithTheLibraryOnBrokenDocuments)
{
    const IgnoredLeaks leaks;
    QRandomGenerator random(71);
    RandomJson json(&random);
    const QVector<QByteArray> pieces{"\"", "{", "}", "[", "]", ",", ":", "\\", "\n", "\r", " ", "\t", "\xEF\xBB\xBF",
        "\xED\xA0\x80", "\xFF", QByteArray(1, '\0'), "0", "-", ".", "e", "\\u12", "null", "tru", "\u00a0", "\v"};
    for (int i = 0; i < brokenInputs && !testing::Test::HasFailure(); ++i) {
        const QByteArray whole = i % 2 ? '[' + json.value(3) + ',' + json.object(2) + ']'
                                       : json.object(2) + '\n' + json.object(2) + '\n' + json.object(3);
        const QByteArray text = mutated(whole, pieces, random);
        SCOPED_TRACE(text.toStdString());
        const TreeOutcome reading = readTree<JsonReader>(text, optionsFor(i), blockSizeFor(i));
        expectEqual(reading, referenceJson(text, optionsFor(i)));
    }
}

TEST(JsonReader, ShowsNumbersAsTheyAreShownElsewhere)
{
    const IgnoredLeaks leaks;
    for (const char *locale : {"en_US", "de_DE", "ar_EG"}) {
        const ScopedLocale scoped(locale);
        QRandomGenerator random(5);
        RandomJson json(&random);
        QByteArray text("[1.5");
        for (int i = 0; i < 4000; ++i) {
            QByteArray number = json.number();
            text += number.endsWith("e400") || number.endsWith("e308") ? QByteArray() : ',' + number;
        }
        text += ']';
        SCOPED_TRACE(locale);
        expectEqual(readTree<JsonReader>(text, longRows), referenceJson(text, longRows));
    }
}

/// A record with so many arrays of so many elements.
QByteArray manyArrays(int arrays, int size, const QByteArray &element)
{
    QByteArray text("[{");
    for (int i = 0; i < arrays; ++i) {
        const QByteArray elements = (element + ',').repeated(size);
        text += (i > 0 ? ",\"" : "\"") + QByteArray::number(i) + "\":[" + elements.left(elements.size() - 1) + ']';
    }
    return text + "}]";
}

TEST(JsonReader, RefusesRecordsWithMoreRowsThanFit)
{
    EXPECT_THROW(readTree<JsonReader>(manyArrays(4, 1000, "1"), longRows), std::bad_alloc);
    EXPECT_THROW(readTree<JsonReader>(manyArrays(70, 2, "[]"), longRows), std::bad_alloc);
    EXPECT_EQ(readTree<JsonReader>(manyArrays(3, 20, "1"), longRows).rows.size(), 8000);
}

TEST(JsonReader, CanBeStoppedInsideOneRecord)
{
    QBuffer buffer;
    buffer.setData(manyArrays(2, 1000, "1"));
    buffer.open(QIODevice::ReadOnly);
    TextSource source(&buffer, TextSource::automatic());
    JsonReader reader(longRows, &source);
    int calls = 0;
    reader.setProgress([&calls](double share) {
        EXPECT_GE(share, 0);
        EXPECT_LE(share, 1);
        if (++calls == 50) {
            throw std::runtime_error("stopped");
        }
    });
    Dataset dataset;
    EXPECT_THROW(reader.read(&dataset), std::runtime_error);
}

} // namespace
