#include "inputs/xmlreader.h"

#include "inputs/xmlreference.h"

#include <QRegularExpression>
#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <stdexcept>

namespace {

constexpr TreeReadOptions longRows{1, true, true, true};
constexpr TreeReadOptions wideRows{0, true, true, true};
constexpr TreeReadOptions untouched{2, false, false, false};

/// The same with the columns by name, since a document object model forgets the order of attributes.
TreeOutcome sorted(TreeOutcome outcome)
{
    QVector<int> order(outcome.header.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](int a, int b) { return outcome.header.at(a) < outcome.header.at(b); });
    const auto reordered = [&order](const QStringList &cells) {
        QStringList result;
        for (int i : order) {
            result.append(cells.at(i));
        }
        return result;
    };
    for (QString &row : outcome.rows) {
        const QStringList cells = row.split(QLatin1Char('|'));
        if (cells.size() == order.size()) { // no cell has a '|' in it
            row = reordered(cells).join(QLatin1Char('|'));
        }
    }
    outcome.header = reordered(outcome.header);
    return outcome;
}

/// A document object model drops unknown references from attributes, the reader leaves them as they are.
bool hasReferences(const TreeOutcome &outcome)
{
    static const QRegularExpression reference(QStringLiteral("&[^;|&]+;"));
    return QString::fromUtf8(outcome.rows.join(QLatin1Char('|')).toUtf8()).contains(reference);
}

void expectEqual(const TreeOutcome &read, const TreeOutcome &expected)
{
    EXPECT_EQ(read.done, expected.done);
    EXPECT_EQ(read.header, expected.header);
    EXPECT_EQ(read.rows, expected.rows);
    EXPECT_EQ(read.infos, expected.infos);
    EXPECT_EQ(read.warnings, expected.warnings);
}

TEST(XmlReader, MakesRowsOfTrees)
{
    const struct
    {
        const char *what;
        TreeReadOptions options;
        QByteArray text;
        QStringList header;
        QStringList rows;
    } cases[] = {
        {"each child of the document element is a row", longRows,
            "<r><p><a>1</a><b>x</b></p>\n<q><c>2</c><a>3</a></q></r>", {"a", "b", "c"}, {"1|x|", "3||2"}},
        {"attributes are columns beside the child elements", longRows, "<r><p id='7'><a u=\"k\">1</a></p></r>",
            {"id", "a", "a.u"}, {"7|1|k"}},
        {"names join with points", longRows, "<r><p><a><b><c>1</c></b></a></p></r>", {"a.b.c"}, {"1"}},
        {"siblings of one name are rows", longRows, "<r><p><a>1</a><t>x</t><b>2</b><t>y</t></p></r>", {"a", "t", "b"},
            {"1|x|2", "1|y|2"}},
        {"or columns", wideRows, "<r><p><t>x</t><b>2</b><t><u>y</u></t></p><p><t>z</t></p></r>",
            {"t.0", "t.1.u", "b", "t"}, {"x|y|2|", "|||z"}},
        {"two lists multiply", longRows, "<r><p><a>1</a><a>2</a><b>3</b><b>4</b></p></r>", {"a", "b"},
            {"1|3", "2|3", "1|4", "2|4"}},
        {"records that are text only have their own name as column", longRows, "<r><n>Ann</n><n>Bob</n></r>", {"n"},
            {"Ann", "Bob"}},
        {"texts around children are joined", longRows, "<r><p>x<b>1</b>y<![CDATA[<z>]]></p></r>", {"p", "b"},
            {"xy<z>|1"}},
        {"text beside the records isn't lost", longRows, "<r>note<p><a>1</a></p></r>", {"#text", "a"}, {"note|", "|1"}},
        {"references are replaced, unknown ones stay", longRows,
            "<r><p a='&lt;&#x41;&nbsp;'><b>&amp;&euro; 2</b></p></r>", {"a", "b"}, {"<A&nbsp;|&&euro; 2"}},
        {"characters beyond 16 bits", longRows, "<r><p a='&#128512;'>&#x1F600;</p></r>", {"p", "a"},
            {"\U0001F600|\U0001F600"}},
        {"declared entities are replaced", longRows, "<!DOCTYPE r [<!ENTITY u 'http://x/'>]><r><p a='&u;y'>&u;</p></r>",
            {"p", "a"}, {"http://x/|http://x/y"}},
        {"comments and instructions are no columns", longRows, "<r><!-- c --><?i j?><p><a>1<!-- d -->2</a></p></r>",
            {"a"}, {"12"}},
        {"an encoding in the declaration changes nothing", longRows,
            "<?xml version='1.0' encoding='ISO-8859-1'?><r><p>é</p></r>", {"p"}, {"é"}},
        {"whitespace is left when asked to, but not between elements", untouched,
            "<r> <p>\n<a x='1\t2'> b\r\nc </a><d>  </d></p></r>", {"a", "a.x", "d"}, {" b\r\nc |1\t2|"}},
        {"points in names stay", longRows, "<r><p><a.b>1</a.b></p></r>", {"a.b"}, {"1"}},
        {"no records, no rows", longRows, "<r/>", {}, {}},
        {"an attribute given twice counts once, as the library's parser has it", longRows, "<r><p a='1' a='2'/></r>",
            {"a"}, {"2"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TreeOutcome outcome = readTree<XmlReader>(c.text, c.options);
        EXPECT_EQ(outcome.warnings, QStringList());
        EXPECT_EQ(outcome.header, c.header);
        EXPECT_EQ(outcome.rows, c.rows);
    }
}

QByteArray nested(int depth)
{
    QByteArray text;
    for (int i = 0; i < depth; ++i) {
        text += "<a>";
    }
    text += "x";
    for (int i = 0; i < depth; ++i) {
        text += "</a>";
    }
    return text;
}

QByteArray entityBomb()
{
    QByteArray text("<!DOCTYPE r [<!ENTITY e0 'aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa'>");
    for (int i = 1; i < 12; ++i) {
        text += QStringLiteral("<!ENTITY e%1 '").arg(i).toLatin1();
        text += QStringLiteral("&e%1;").arg(i - 1).repeated(10).toLatin1() + "'>";
    }
    return text + "]><r><p>&e11;</p></r>";
}

TEST(XmlReader, TellsWhatIsWrong)
{
    const struct
    {
        const char *what;
        QByteArray text;
        QString warning;
    } cases[] = {
        {"an empty text", "", "unexpected end of file at line 1 column 1"},
        {"a wrong end tag", "<r>\n<p></q></r>", "tag mismatch at line 2 column 7"},
        {"a text that breaks off", "<r><p>", "unexpected end of file at line 1 column 7"},
        {"nesting without end", nested(100000), "elements are nested too deeply at line 1 column 3076"},
        {"the same behind what only the library's parser takes", "<r>\x01" + nested(100000),
            "elements are nested too deeply at line 1 column 3076"},
        {"entities that grow without end", entityBomb(),
            "limit on input amplification factor (from DTD and entities) breached at line 1 column 704"},
        {"files of others", "<!DOCTYPE r [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><r><p>&e;</p></r>",
            "external entities are not allowed at line 1 column 61"},
        {"errors beside declared entities", "<!DOCTYPE r [<!ENTITY e 'x'>]><r><p>&e;</q></r>",
            "mismatched tag at line 1 column 42"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const TreeOutcome outcome = readTree<XmlReader>(c.text, longRows);
        EXPECT_FALSE(outcome.done);
        EXPECT_EQ(outcome.warnings, QStringList("Error parsing XML: " + c.warning));
        EXPECT_EQ(outcome.header, QStringList());
    }
}

/// A random document, with much in it that parsers see differently.
class RandomXml
{
public:
    RandomXml(QRandomGenerator *random, bool unknownReferences)
        : m_random(random)
        , m_unknownReferences(unknownReferences)
    {
    }

    QByteArray document()
    {
        QByteArray text = pick({"", "", "<?xml version='1.0' encoding='latin1'?>\n", "<!DOCTYPE r>", "<!-- x -->\n",
            "<!DOCTYPE r [<!ATTLIST a x NMTOKENS 'y'>]>"});
        return text + element("r", 4) + pick({"", "\n", "<!-- y -->", "<?p q?>\n"});
    }

private:
    int below(int limit) { return static_cast<int>(m_random->bounded(limit)); }
    QByteArray pick(std::initializer_list<const char *> choices) { return choices.begin()[below(int(choices.size()))]; }

    QByteArray element(const QByteArray &name, int depth)
    {
        QByteArray text = '<' + name;
        for (const char *attribute : {"x", "xmlns:y", "z"}) {
            if (!below(5)) {
                text += pick({" ", "\n ", "\t"}) + attribute + pick({"=", " = "}) + '\'' + words() + '\'';
            }
        }
        text += pick({"", " "});
        if (!below(6)) {
            return text + "/>";
        }
        text += '>';
        for (int count = below(5); count > 0; --count) {
            text += below(3) && depth > 0 ? element(pick({"a", "b", "c", "n:d", "e.f", "é"}), depth - 1) : content();
        }
        return text + "</" + name + pick({">", ">", " >"});
    }

    QByteArray content()
    {
        return below(2) ? words()
                        : pick({"<!-- c -->", "<?i j?>", "<![CDATA[ <c> ]]>", "<![CDATA[ ]]>", "\n  ", " ",
                            m_unknownReferences ? "&nbsp;" : "&lt;", "\u00a0", "&#32;", "\r\n"});
    }

    QByteArray words()
    {
        QByteArray text;
        for (int count = below(4); count > 0; --count) {
            text += pick({"w", "7", " ", "é", "\U0001F600", "&amp;", "&lt;", "&#65;", "&#x20AC;", "&#10;", "\t", "\n",
                "\r", "\r\n", ">", "\"", "]", "\u2028", "\u3000"});
        }
        return text;
    }

    QRandomGenerator *m_random;
    const bool m_unknownReferences;
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
constexpr int brokenInputs = 2500;

TEST(XmlReader, AgreesWithTheLibraryOnRandomDocuments)
{
    QRandomGenerator random(87);
    RandomXml xml(&random, true);
    for (int i = 0; i < validInputs && !testing::Test::HasFailure(); ++i) {
        const QByteArray text = xml.document();
        SCOPED_TRACE(text.toStdString());
        expectEqual(sorted(readTree<XmlReader>(text, optionsFor(i), blockSizeFor(i))),
            sorted(referenceXml(text, optionsFor(i))));
    }
}

TEST(XmlReader, AgreesWithTheLibraryOnBrokenDocuments)
{
    QRandomGenerator random(3);
    RandomXml xml(&random, false);
    const QVector<QByteArray> pieces{"<", ">", "/", "</a>", "<a>", "'", "\"", "=", "&", ";", "&#0;", "]]>", "<![CDATA[",
        "--", "<!--", "<?", "?>", "<!", "[", "\xFF", "\xED\xA0\x80", "\x01", "&#xD800;", " x='1'", "é", "\r"};
    // The library's parser keeps but 16 bits of characters that are referred to by number.
    const QRegularExpression largeReference(QStringLiteral("&#(x0*[1-9a-fA-F][0-9a-fA-F]{4}|0*[1-9][0-9]{4})"));
    for (int i = 0; i < brokenInputs && !testing::Test::HasFailure(); ++i) {
        const QByteArray text = mutated(xml.document(), pieces, random);
        if (QString::fromUtf8(text).contains(largeReference)) {
            continue;
        }
        SCOPED_TRACE(text.toStdString());
        const TreeOutcome outcome = readTree<XmlReader>(text, optionsFor(i), blockSizeFor(i));
        if (hasReferences(outcome)) {
            continue;
        }
        expectEqual(sorted(outcome), sorted(referenceXml(text, optionsFor(i))));
        EXPECT_EQ(outcome.done, outcome.warnings.isEmpty());
    }
}

TEST(XmlReader, CanBeStopped)
{
    QBuffer buffer;
    buffer.setData("<r>" + QByteArray("<p><a>1</a></p>").repeated(10000) + "</r>");
    buffer.open(QIODevice::ReadOnly);
    TextSource source(&buffer, TextSource::automatic());
    XmlReader reader(longRows, &source);
    reader.setProgress([](double) { throw std::runtime_error("stopped"); });
    Dataset dataset;
    EXPECT_THROW(reader.read(&dataset), std::runtime_error);
}

} // namespace
