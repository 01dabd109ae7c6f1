#include "nestedtables.h"
#include "outputs/textlayout.h"
#include "outputs/xmlnames.h"
#include "outputs/xmlwriter.h"
#include "plainxml.h"
#include "support/grid.h"
#include "support/printers.h"
#include "written.h"

namespace {

XmlWriter::Format formatOf(const QString &rootName = "root", const QString &rowName = "record")
{
    XmlWriter::Format format;
    format.encoding = "UTF-8";
    format.rootName = rootName;
    format.rowName = rowName;
    return format;
}

std::string xml(const Dataset &table, const XmlWriter::Format &format, const QByteArray &lineEnding = "\n")
{
    TextLayout layout;
    layout.lineEnding = lineEnding;
    return written([&](TextSink &sink) { XmlWriter::write(sink, table, format, layout); });
}

const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

} // namespace

TEST(XmlWriter, MakesElementsAndAttributesOfNames)
{
    struct
    {
        const char *what;
        Dataset table;
        bool removeEmpty;
        const char *rows;
    } const cases[] = {
        {"a row is an element, an empty value goes", grid({"name|age", "Ann|30", "Bob, Jr|"}), true,
            "  <record>\n    <name>Ann</name>\n    <age>30</age>\n  </record>\n"
            "  <record>\n    <name>Bob, Jr</name>\n  </record>\n"},
        {"or stays", grid({"a|_b", "|"}), false, "  <record>\n    <a></a>\n  </record>\n"},
        {"names with a common beginning share an element", grid({"a.b|a.c", "1|x"}), true,
            "  <record>\n    <a>\n      <b>1</b>\n      <c>x</c>\n    </a>\n  </record>\n"},
        {"an underscore makes an attribute", grid({"_id|name", "7|x"}), true,
            "  <record id=\"7\">\n    <name>x</name>\n  </record>\n"},
        {"attributes go by their names", grid({"_b|_a|c", "1|2|3"}), true,
            "  <record a=\"2\" b=\"1\">\n    <c>3</c>\n  </record>\n"},
        {"attributes alone need no end tag", grid({"a._x", "1"}), true, "  <record>\n    <a x=\"1\"/>\n  </record>\n"},
        {"beside attributes a value is the text", grid({"a|a._x", "v|1"}), true,
            "  <record>\n    <a x=\"1\">v</a>\n  </record>\n"},
        {"beside elements it is an attribute", grid({"a|a.b", "v|1"}), true,
            "  <record>\n    <a value=\"v\">\n      <b>1</b>\n    </a>\n  </record>\n"},
        {"which gives way to others of its name", grid({"a|a._value|a.__value|a.b", "v|1|2|3"}), true,
            "  <record>\n    <a __value=\"v\" _value=\"2\" value=\"1\">\n      <b>3</b>\n    </a>\n  </record>\n"},
        {"but not to empty ones", grid({"a|a._value|a.b", "v||3"}), false,
            "  <record>\n    <a value=\"v\">\n      <b>3</b>\n    </a>\n  </record>\n"},
        {"an underscore with children is an element", grid({"_a.b", "1"}), true,
            "  <record>\n    <_a>\n      <b>1</b>\n    </_a>\n  </record>\n"},
        {"elements go by the last column that has a part in them", grid({"a.x|b|a.y", "p|q|r"}), true,
            "  <record>\n    <b>q</b>\n    <a>\n      <x>p</x>\n      <y>r</y>\n    </a>\n  </record>\n"},
        {"of attributes of one name the last with a value counts", grid({"_a|_a|_a", "1|2|"}), true,
            "  <record a=\"2\"/>\n"},
        {"tags lose exclamation marks and spaces", grid({"!!1 a b|c", "x|"}), true,
            "  <record>\n    <1-a-b>x</1-a-b>\n  </record>\n"},
        {"values are escaped", grid({"_a|b", "<\"&'>|<\"&'>"}), true,
            "  <record a=\"&lt;&quot;&amp;&apos;&gt;\">\n    <b>&lt;&quot;&amp;&apos;&gt;</b>\n  </record>\n"},
        {"an attribute of whose name nothing is left gets one", grid({"_|b", "1|2"}), true,
            "  <record _=\"1\">\n    <b>2</b>\n  </record>\n"},
        {"which no other has", grid({"_|__|___|_!", "1|2|3|"}), true, "  <record _=\"2\" __=\"3\" ___=\"1\"/>\n"},
        {"so do elements", grid({"!|.x|a..b|n.", "1|2|3|4"}), true,
            "  <record>\n    <_>1</_>\n    <_>\n      <x>2</x>\n    </_>\n    <a>\n      <_>\n        <b>3</b>\n"
            "      </_>\n    </a>\n    <n>\n      <_>4</_>\n    </n>\n  </record>\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        XmlWriter::Format format = formatOf();
        format.removeEmpty = c.removeEmpty;
        EXPECT_EQ(xml(c.table, format), declaration + "<root>\n" + c.rows + "</root>\n");
    }
}

TEST(XmlWriter, WrapsRowsInRootAndRowElements)
{
    const Dataset one = grid({"a", "1"});
    const Dataset none = grid({"a"});
    struct
    {
        const char *what;
        Dataset table;
        XmlWriter::Format format;
        const char *text;
    } const cases[] = {
        {"no rows leave nothing of the root", none, formatOf(), ""},
        {"nor do rows of empty values", grid({"a", "", ""}), formatOf(), ""},
        {"a point nests roots", one, formatOf("a.b"),
            "<a>\n  <b>\n    <record>\n      <a>1</a>\n    </record>\n  </b>\n</a>\n"},
        {"of which the outer ones stay without rows", none, formatOf("a.b.c"),
            "<a>\n  <b>\n    <c></c>\n  </b>\n</a>\n"},
        {"while an attribute has nothing to show", none, formatOf("a._b"), "<a>\n</a>\n"},
        {"a point nests rows", one, formatOf("root", "r.s t"),
            "<root>\n  <r>\n    <s-t>\n      <a>1</a>\n    </s-t>\n  </r>\n</root>\n"},
        {"no names at all", one, formatOf("", "."), "<_>\n  <_>\n    <a>1</a>\n  </_>\n</_>\n"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(xml(c.table, c.format), declaration + c.text);
    }
}

TEST(XmlWriter, PutsLinesRoundTheOutermostStartTag)
{
    XmlWriter::Format format = formatOf("a.b");
    format.comment = " 1 < 2 ";
    format.aboveRoot = "<!DOCTYPE a>\n<?p?>";
    format.belowRoot = "<x/>\n<y/>";
    EXPECT_EQ(xml(grid({"c", "1"}), format, "\r\n"),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!-- 1 &lt; 2 -->\r\n<!DOCTYPE a>\r\n<?p?>\r\n<a>\r\n"
        "  <x/>\r\n  <y/>\r\n  <b>\r\n    <record>\r\n      <c>1</c>\r\n    </record>\r\n  </b>\r\n</a>\r\n");
}

TEST(XmlWriter, WritesWhatTheTreeOfAllRowsGives)
{
    NestedTables tables(11);
    const QString names[] = {"root", "a.b", "r._s.t", "", "_x", "!a b", "a..b"};
    for (int i = 0; i < 8000; ++i) {
        const Dataset table = tables.next();
        XmlWriter::Format format = formatOf(names[tables.below(7)], names[tables.below(7)]);
        format.removeEmpty = tables.below(2) == 0;
        format.aboveRoot = tables.below(2) == 0 ? "<up/>\n" : "";
        format.belowRoot = tables.below(2) == 0 ? "<in/>" : "";
        const PlainXml plain(table, format, "\n");
        ASSERT_EQ(xml(table, format), written([&](TextSink &sink) { sink.append(plain.text); }))
            << "table " << i << ": " << table.columnNames().join('|').toStdString();
    }
}

TEST(XmlWriter, SurvivesNamesThatNestVeryDeeply)
{
    const int depth = 2000;
    const QString name = QStringList(QVector<QString>(depth, "a").toList()).join('.');
    const std::string text = xml(grid({name, "1"}), formatOf());
    EXPECT_EQ(std::count(text.begin(), text.end(), '<'), 2 * depth + 5);
}

TEST(XmlNames, SayWhyANameIsNoTag)
{
    struct
    {
        const char *what;
        const char *name;
        const char *reason; // empty where the name will do
    } const cases[] = {
        {"letters, digits and marks of any script", "\xC3\xA9\xD9\xA3-_.b", ""},
        {"spaces become hyphens", "a b", ""},
        {"an attribute is let pass", "_ <", ""},
        {"and what loses its mark", "!1", ""},
        {"nothing", "", "empty name"},
        {"what is kept for XML itself", "xMlabc", "starts with 'xml'"},
        {"a digit in front", "1a", "doesn't start with a letter"},
        {"the first of several faults", "a(b]", "invalid character '('"},
        {"a reference", "a<b", "invalid character '&'"},
        {"a part without a name", "a..b", "empty part, written as '_'"},
        {"at the end", "notes...", "empty part, written as '_'"},
        {"an attribute of which nothing is left", "a._", "empty part, written as '_'"},
        {"an element of which nothing is left", "!!", "empty part, written as '_'"},
        {"while an underscore with children is a name", "_.a", ""},
        {"a letter of two units", "\xF0\x9D\x92\x9C\xF0\x9D\x92\x9C", ""},
        {"a sign of two units", "a\xF0\x9F\x98\x80", "invalid character '\xF0\x9F\x98\x80'"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const QString name = QString::fromUtf8(c.name);
        const QString warning = *c.reason
                                    ? "Column name '" + name + "' invalid as an XML tag: " + QString::fromUtf8(c.reason)
                                    : QString();
        EXPECT_EQ(XmlNames::checkXmlTagName(name), warning);
    }
}
