#include "document/markup.h"
#include "support/printers.h"

#include <QDomDocument>
#include <QTextCodec>
#include <gtest/gtest.h>

namespace {

QByteArray nested(int depth)
{
    return "<!DOCTYPE Quillmere>" + QByteArray("<root>").repeated(depth) + QByteArray("</root>").repeated(depth);
}

QByteArray withDeclarations(const QByteArray &declarations, const QByteArray &body = "<root/>")
{
    return "<!DOCTYPE Quillmere [" + declarations + "]>" + body;
}

QByteArray manyLaughs()
{
    QByteArray declarations = "<!ENTITY a0 \"lol\">";
    for (int i = 1; i < 12; ++i) {
        const QByteArray reference = "&a" + QByteArray::number(i - 1) + ";";
        declarations += "<!ENTITY a" + QByteArray::number(i) + " \"" + reference.repeated(10) + "\">";
    }
    return withDeclarations(declarations, "<root x=\"&a11;\"/>");
}

} // namespace

TEST(Markup, RefusesWhatIsNoDocument)
{
    const struct
    {
        const char *what;
        QByteArray bytes;
    } cases[] = {
        {"binary data", QByteArray("\x00\x01\x02PK\x03\x04\xff\xfe", 9)},
        {"plain text", "id,qty\n1,2\n"},
        {"a document cut off in an element", "<!DOCTYPE Quillmere><root><meta>"},
        {"a document cut off in a tag", "<!DOCTYPE Quillmere><root><inputs><input id=\"1"},
        {"only a document type", "<!DOCTYPE Quillmere>"},
        {"tags that don't match", "<root></toor>"},
        {"entities that expand to more and more", manyLaughs()},
        {"one harmless entity", withDeclarations("<!ENTITY a \"b\">", "<root>&a;</root>")},
        {"a parameter entity", withDeclarations("<!ENTITY % p '<!ELEMENT root ANY>'> %p;")},
        {"an entity behind a quoted comment mark", withDeclarations("<!ATTLIST a b CDATA \"<!--\"><!ENTITY x \"y\">")},
        {"elements nested too deeply", nested(65)},
        {"elements nested so deeply that the stack would overflow", nested(200000)},
        {"deep nesting hidden behind a quoted comment mark",
            "<!DOCTYPE Quillmere [<!ATTLIST a b CDATA \"<!--\">]>" + nested(200000).mid(20) + "<!-- -->"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        QDomDocument document;
        MarkupError error;
        EXPECT_FALSE(parseMarkup(c.bytes, document, error));
        EXPECT_FALSE(error.text.isEmpty());
        EXPECT_GE(error.line, 1);
        EXPECT_GE(error.column, 1);
    }
}

TEST(Markup, ReadsWhatDocumentsHold)
{
    const QString text = QString::fromUtf8("<!DOCTYPE Quillmere><root x=\"é\"/>");
    const struct
    {
        const char *what;
        QByteArray bytes;
        QString attribute;
    } cases[] = {
        {"without an encoding it is UTF-8", text.toUtf8(), QString::fromUtf8("é")},
        {"a declared encoding is honoured", "<?xml version='1.0' encoding='ISO-8859-1'?>" + text.toLatin1(),
            QString::fromUtf8("é")},
        {"a byte order mark goes before all", QTextCodec::codecForName("UTF-16")->fromUnicode(text),
            QString::fromUtf8("é")},
        {"a raw unit separator stays", QByteArray("<!DOCTYPE Quillmere><root x=\"1|2\"/>").replace('|', 0x1F),
            QStringLiteral("1\u001f2")},
        {"comments and quoted marks don't count as tags",
            "<!DOCTYPE Quillmere><!-- <a><b> --><root x=\"'&gt;\">" + QByteArray("<a b='/>'/>").repeated(100)
                + "</root>",
            QStringLiteral("'>")},
        {"as deep as allowed", "<!DOCTYPE Quillmere><root x=\"d\">" + nested(63).mid(20) + "</root>",
            QStringLiteral("d")},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        QDomDocument document;
        MarkupError error;
        EXPECT_TRUE(parseMarkup(c.bytes, document, error)) << error.text.toStdString();
        EXPECT_EQ(document.documentElement().attribute(QStringLiteral("x")), c.attribute);
    }
}

TEST(Markup, TellsWhereItStopped)
{
    QDomDocument document;
    MarkupError error;
    EXPECT_FALSE(parseMarkup("<!DOCTYPE Quillmere [\n\n <!ENTITY a \"b\">]><root/>", document, error));
    EXPECT_EQ(error.text, QStringLiteral("entity declarations are not allowed"));
    EXPECT_EQ(error.line, 3);
    EXPECT_EQ(error.column, 2);
}
