#include "data/controlspace.h"
#include "data/csvencoder.h"
#include "data/textbuffer.h"
#include "support/grid.h"

#include <QMimeData>
#include <QTextStream>
#include <gtest/gtest.h>

namespace {

TEST(DatasetText, WritesThreeFormats)
{
    const Dataset dataset = grid({"a,b|", "x \"y\"|1\n2", "tab\there|"});
    EXPECT_EQ(dataset.toText(TextForm::CommaSeparated), "\"a,b\",\r\n\"x \"\"y\"\"\",\"1\n2\"\r\ntab\there,");
    EXPECT_EQ(dataset.toText(TextForm::TabSeparated), "a,b\t\r\nx \"y\"\t1 2\r\ntab here\t");
    EXPECT_EQ(dataset.toText(TextForm::Plain), "a,b2\r\nx \"y\"1\n2\r\ntab\there");
    EXPECT_EQ(plainGrid({"a|b", "c|d"}).toText(TextForm::CommaSeparated), "a,b\r\nc,d");
    EXPECT_EQ(Dataset().toText(TextForm::CommaSeparated), "");
}

TEST(DatasetText, WritesHtmlForTheClipboard)
{
    EXPECT_EQ(grid({"h", "1<2"}).toHtml(),
        "<html><head><meta charset=\"utf-8\"/></head><body><table><tbody><tr><th>h</th></tr>"
        "<tr><td>1<2</td></tr></tbody></table></body></html>");
    const std::unique_ptr<QMimeData> data(grid({"h|\u00e9", "1|2"}).toMimeData(TextForm::TabSeparated));
    EXPECT_EQ(data->text(), "h\t\u00e9\r\n1\t2");
    EXPECT_EQ(data->data("text/csv"), QByteArray("h,\xC3\xA9\r\n1,2"));
    EXPECT_TRUE(data->html().contains("<td>2</td>"));
}

struct CsvCase
{
    const char *what;
    QStringList values;
    QChar delimiter;
    int quoting;
    QString line;
};

TEST(CsvEncoder, QuotesByNeedAlwaysOrNever)
{
    const CsvCase cases[] = {
        {"plain values and blanks at the ends", {"a", " b ", ""}, ',', 0, "a, b ,"},
        {"delimiter, quote and line breaks", {"a,b", "\"", "\n", "\r"}, ',', 0, "\"a,b\",\"\"\"\",\"\n\",\"\r\""},
        {"another delimiter", {"a,b", "a;b"}, ';', 0, "a,b;\"a;b\""},
        {"a delimiter of two bytes", {"1\u00a62", "\u00a6"}, QChar(0xA6), 0, "\"1\u00a62\"\u00a6\"\u00a6\""},
        {"always", {"a", "", "\""}, ',', 1, "\"a\",\"\",\"\"\"\""},
        {"never: what would break the line is replaced", {"a,b", "\"q\"", "1\r\n2"}, ',', 2, "a b,\"q\",1  2"},
        {"never, blank as delimiter", {"a b", "c"}, ' ', 2, "a_b c"},
        {"no values", {}, ',', 1, ""},
    };
    for (const CsvCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(Dataset::csvLine(c.values, c.delimiter, c.quoting), c.line);
    }
    CsvEncoder encoder(',', CsvEncoder::Never);
    QByteArray out;
    encoder.appendLine(out, {"a,b,c", "plain", "\n"});
    EXPECT_EQ(encoder.replacedCount(), 2);
}

struct ParseCase
{
    const char *what;
    QString text;
    int skipRows;
    bool trim;
    bool simplify;
    bool skipEmptyRows;
    QStringList expected;
};

QStringList parsed(const ParseCase &c)
{
    QString text = c.text;
    QTextStream stream(&text);
    return rows(Dataset::fromDelimitedText(stream, ',', c.skipRows, c.trim, c.simplify, c.skipEmptyRows));
}

TEST(DatasetParse, ReadsPastedText)
{
    const ParseCase cases[] = {
        {"nothing", "", 0, false, false, false, {}},
        {"all line ends", "a,b\nc,d\re,f\r\ng,h", 0, false, false, false, {"a|b", "c|d", "e|f", "g|h"}},
        {"short rows are padded, earlier ones too", "a\nb,c\nd", 0, false, false, false, {"a|", "b|c", "d|"}},
        {"quoted field with delimiter and break", "\"a,\nb\",c", 0, false, false, false, {"a,\nb|c"}},
        {"doubled quote", "\"say \"\"yes\"\"\"", 0, false, false, false, {"say \"yes\""}},
        {"quote inside a plain field", "5\" pipe,x", 0, false, false, false, {"5\" pipe|x"}},
        {"text behind a closing quote", "\"a\"b,c\",d", 0, false, false, false, {"ab,c|d"}},
        {"rows before the first wanted", "1\n2\n3", 2, false, false, false, {"3"}},
        {"trimmed", " a ,\tb", 0, true, false, false, {"a|b"}},
        {"breaks within become blanks", "\"a\r\n\tb\",c", 0, false, true, false, {"a  b|c"}},
        {"empty rows are kept", "a\n\nb", 0, false, false, false, {"a", "", "b"}},
        {"empty rows are left out, blank ones after trimming", "a\n ,\n\nb,", 0, true, false, true, {"a", "b"}},
    };
    for (const ParseCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(parsed(c), c.expected);
    }
}

TEST(DatasetParse, LineEndsAtTheEndOfABlockStayTogether)
{
    for (int before : {2046, 2047, 2048, 4095}) {
        SCOPED_TRACE(before);
        const QString filler(before, 'x');
        EXPECT_EQ(parsed({"", filler + "\r\nb", 0, false, false, false, {}}), QStringList({filler, "b"}));
        EXPECT_EQ(parsed({"", filler + "\r\r\nb", 0, false, false, false, {}}), QStringList({filler, "", "b"}));
    }
}

TEST(ControlSpace, MakesOneLine)
{
    const QPair<QString, QString> cases[] = {
        {"plain text", "plain text"},
        {"a\r\nb\tc\v", "a b c "},
        {"\r\r", ""},
        {"\u00e9\u00a0\u2003\tx", "\u00e9   x"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.first.toStdString());
        QString text = c.first;
        simplifyControlSpace(text);
        EXPECT_EQ(text, c.second);
        TextBuffer bytes;
        setText(bytes, c.first);
        const int size = simplifyControlSpace(bytes.data(), bytes.size());
        EXPECT_EQ(TextCoding::decode(bytes.constData(), size), c.second);
    }
}

} // namespace
