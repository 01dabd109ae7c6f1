#include "data/dataset.h"
#include "outputs/htmlwriter.h"
#include "outputs/markdownwriter.h"
#include "outputs/plaintextwriter.h"
#include "outputs/textlayout.h"
#include "outputs/vcardwriter.h"
#include "outputs/yamlwriter.h"
#include "support/grid.h"
#include "written.h"

namespace {

struct WriterCase
{
    const char *what;
    Dataset table;
    const char *comment;
    bool header;
    const char *lineEnding;
    std::string bytes;
};

TextLayout layoutOf(const WriterCase &c)
{
    TextLayout layout;
    layout.lineEnding = c.lineEnding;
    layout.writeHeader = c.header;
    return layout;
}

Dataset people()
{
    return grid({"name|age", "Ann|30", "Bob, Jr|"});
}

const char pageStart[] =
    "<!DOCTYPE html>\n<html>\n  <head>\n    <meta charset=\"UTF-8\"/>\n    <title>a&lt;b.html</title>\n"
    "    <style>table,td,th{border:1px solid black;text-align:left;vertical-align:top;"
    "border-spacing:0px;border-color:gray;font-family:Verdana,sans-serif;}"
    "th{background-color:#E0E0E0;}td,th{padding:5px;}</style>\n"
    "  </head>\n  <body>\n    <table>\n      <tbody>\n";
const char pageEnd[] = "      </tbody>\n    </table>\n  </body>\n</html>\n";

std::string page(const std::string &rows)
{
    return pageStart + rows + pageEnd;
}

} // namespace

TEST(PlainTextWriter, PutsNothingBetweenValues)
{
    const WriterCase cases[] = {
        {"names and values side by side", grid({"a|b", "1|2", "|\"x\n"}), "", true, "\n", "ab\n12\n\"x\n\n"},
        {"one column gives one value a line", grid({"a", "x", "y"}), "", false, "\r\n", "x\r\ny\r\n"},
        {"no header and no rows write nothing", grid({"a"}), "", false, "\n", ""},
    };
    for (const WriterCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(written([&](TextSink &sink) { PlainTextWriter::write(sink, c.table, layoutOf(c)); }), c.bytes);
    }
}

TEST(HtmlWriter, WritesAWholePage)
{
    const WriterCase cases[] = {
        {"header and rows", grid({"name|age", "Ann|30"}), "", true, "\n",
            page("        <tr>\n          <th>name</th>\n          <th>age</th>\n        </tr>\n"
                 "        <tr>\n          <td>Ann</td>\n          <td>30</td>\n        </tr>\n")},
        {"no rows give the table with its header", grid({"a"}), "", true, "\n",
            page("        <tr>\n          <th>a</th>\n        </tr>\n")},
        {"names and values are escaped", grid({"<a>", "\"x\" & 'y'"}), "", true, "\n",
            page("        <tr>\n          <th>&lt;a&gt;</th>\n        </tr>\n"
                 "        <tr>\n          <td>&quot;x&quot; &amp; 'y'</td>\n        </tr>\n")},
        {"the comment goes first, escaped", grid({"a"}), " <x> ", false, "\n", "<!-- &lt;x&gt; -->\n" + page("")},
    };
    for (const WriterCase &c : cases) {
        SCOPED_TRACE(c.what);
        const HtmlWriter::Format format{"a<b.html", QString::fromUtf8(c.comment), "UTF-8", true};
        EXPECT_EQ(written([&](TextSink &sink) { HtmlWriter::write(sink, c.table, format, layoutOf(c)); }), c.bytes);
    }
}

TEST(HtmlWriter, WritesMarkupRawWhenToldSoButNeverItsOwnParts)
{
    const WriterCase c{"", grid({"<i>a</i>", "<b>&amp;</b>"}), "", true, "\n", ""};
    const HtmlWriter::Format format{"a<b.html", "-->", "UTF-8", false};
    EXPECT_EQ(written([&](TextSink &sink) { HtmlWriter::write(sink, c.table, format, layoutOf(c)); }),
        "<!----&gt;-->\n"
            + page("        <tr>\n          <th><i>a</i></th>\n        </tr>\n"
                   "        <tr>\n          <td><b>&amp;</b></td>\n        </tr>\n"));
}

TEST(MarkdownWriter, AlignsColumns)
{
    const WriterCase cases[] = {
        {"columns as wide as their widest value", people(), "", true, "\n",
            "| name    | age |\n|---------|-----|\n| Ann     | 30  |\n| Bob, Jr |     |\n"},
        {"a column is at least three wide", grid({"a", "xy"}), "", true, "\n", "| a   |\n|-----|\n| xy  |\n"},
        {"without the header names don't count for the width", grid({"longer", "x"}), "", false, "\n", "| x   |\n"},
        {"width counts 16-bit units, a pipe stays", grid({"h", "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", "\xF0\x9F\x98\x80"}),
            "", true, "\n", "| h    |\n|------|\n| \xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9 |\n| \xF0\x9F\x98\x80   |\n"},
        {"columns without header are numbered values", plainGrid({"1"}), "", true, "\n",
            "| value1 |\n|--------|\n| 1      |\n"},
        {"the comment, escaped, and an empty line", grid({"a"}), "x>y", true, "\r\n",
            "<!--x&gt;y-->\r\n\r\n| a   |\r\n|-----|\r\n"},
    };
    for (const WriterCase &c : cases) {
        SCOPED_TRACE(c.what);
        const auto write = [&](TextSink &sink) {
            MarkdownWriter::write(sink, c.table, QString::fromUtf8(c.comment), layoutOf(c));
        };
        EXPECT_EQ(written(write), c.bytes);
    }
}

TEST(VCardWriter, WritesACardForEachRow)
{
    const WriterCase cases[] = {
        {"empty values have their line too", people(), "", true, "\n",
            "BEGIN:VCARD\nVERSION:3.0\nname:Ann\nage:30\nEND:VCARD\n"
            "BEGIN:VCARD\nVERSION:3.0\nname:Bob, Jr\nage:\nEND:VCARD\n"},
        {"values are trimmed, line feeds become blanks and colons are marked", grid({"URL", "\xC2\xA0 http://a\nb:\t"}),
            "", true, "\r\n", "BEGIN:VCARD\r\nVERSION:3.0\r\nURL:http\\://a b\\:\r\nEND:VCARD\r\n"},
        {"columns without header", plainGrid({"x"}), "", true, "\n", "BEGIN:VCARD\nVERSION:3.0\nvalue1:x\nEND:VCARD\n"},
        {"no rows, no cards", grid({"a"}), "", true, "\n", ""},
    };
    for (const WriterCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(written([&](TextSink &sink) { VCardWriter::write(sink, c.table, layoutOf(c)); }), c.bytes);
    }
}

TEST(YamlWriter, WritesAListOfMappings)
{
    const WriterCase cases[] = {
        {"an empty value keeps the blank behind the colon", people(), "", true, "\n",
            "---\n-\n  name: Ann\n  age: 30\n-\n  name: Bob, Jr\n  age: \n"},
        {"the comment is the first line", grid({"a"}), " by hand", true, "\r\n", "# by hand\r\n---\r\n"},
        {"a name with a colon is quoted", grid({"a:b", "1"}), "", true, "\n", "---\n-\n  \"a:b\": 1\n"},
        {"a single quote is doubled and puts the value between single quotes", grid({"a", " it's "}), "", true, "\n",
            "---\n-\n  a: 'it''s'\n"},
        {"a line feed puts it between double quotes", grid({"a", "it's\n\"x\""}), "", true, "\n",
            "---\n-\n  a: \"it''s\n\"x\"\"\n"},
        {"columns without header", plainGrid({"x|y"}), "", true, "\n", "---\n-\n  value1: x\n  value2: y\n"},
    };
    for (const WriterCase &c : cases) {
        SCOPED_TRACE(c.what);
        const auto write = [&](TextSink &sink) {
            YamlWriter::write(sink, c.table, QString::fromUtf8(c.comment), layoutOf(c));
        };
        EXPECT_EQ(written(write), c.bytes);
    }
}
