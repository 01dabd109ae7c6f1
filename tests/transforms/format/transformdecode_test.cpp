#include "support/grid.h"
#include "support/runon.h"
#include "transforms/format/htmltext.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextDocumentFragment>
#include <QUrl>
#include <gtest/gtest.h>

TEST(TransformDecode, ConvertsBothWays)
{
    struct DecodeCase
    {
        const char *what;
        const char *change;
        QString cell;
        QString converted;
    };
    const DecodeCase cases[] = {
        {"Base64 of UTF-8", "From Base64 encoding", "w6kgYWI=", "é ab"},
        {"missing padding is let pass", "From Base64 encoding", "YWI", "ab"},
        {"what isn't Base64 is read as far as it goes", "From Base64 encoding", "Y W*I=", "ab"},
        {"to Base64", "To Base64 encoding", "é ab", "w6kgYWI="},
        {"an empty cell stays", "To Base64 encoding", "", ""},
        {"percent signs", "From URL encoding", "a%20b%C3%A9%zz+", "a bé%zz+"},
        {"a percent sign by itself", "From URL encoding", "100% of 5%", "100% of 5%"},
        {"to percent signs", "To URL encoding", "a b/é?&=~-._", "a%20b%2F%C3%A9%3F%26%3D~-._"},
        {"HTML entities", "From escaped HTML", "&lt;b&gt; &amp;amp; &eacute;&#8364;", "<b> &amp; é€"},
        {"HTML tags", "From escaped HTML", "<p>one</p><p>two <b>words</b></p>", "one\ntwo words"},
        {"HTML blanks", "From escaped HTML", "  a  b&nbsp;c", "a b c"},
        {"to HTML", "To escaped HTML", "<a href=\"x\">'&'", "&lt;a href=&quot;x&quot;&gt;'&amp;'"},
        {"XML entities", "From escaped XML", "&lt;a b=&quot;&apos;&quot;&gt;&amp;lt;&#65;", "<a b=\"'\">&lt;&#65;"},
        {"to XML", "To escaped XML", "<a b=\"'\">&lt;", "&lt;a b=&quot;&apos;&quot;&gt;&amp;lt;"},
        {"nothing chosen", "<select>", "a%20", "a%20"},
    };
    for (const DecodeCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(rows(runOn("Decode", {{"Columns", 1}, {"Decode", c.change}}, plainGrid({c.cell}))),
            QStringList(c.converted));
    }
    const TransformRun unset = runTransform("Decode", {}, {column("a")});
    EXPECT_EQ(unset.resultText(), "No changes");
    EXPECT_EQ(unset.warnings(), QStringList("1 option not set ('Change')"));
    EXPECT_EQ(runTransform("Decode", {{"Decode", "From Base64 encoding"}}, {column("%%%%")}).warnings(), QStringList());
}

TEST(HtmlText, IsQuickOnlyWhereItIsRight)
{
    const QStringList pieces{"a", "B ", " ", "&", "&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "<", ">", "<b>", "\t",
        "é", "中", "\u00a0", "\u2003", "\"", "'", ";", "amp;", "#", "&nbsp;", "/"};
    QRandomGenerator random(5);
    int quick = 0;
    for (int i = 0; i < 20000; ++i) {
        QString html;
        for (int count = 1 + random.bounded(5); count > 0; --count) {
            html += pieces.at(random.bounded(pieces.size()));
        }
        QString text;
        if (HtmlText::plainTextQuickly(html, text)) {
            ++quick;
            ASSERT_EQ(text, QTextDocumentFragment::fromHtml(html).toPlainText()) << html.toStdString();
        }
    }
    EXPECT_GT(quick, 1000);
}

TEST(HtmlText, LoadsNothing)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("style.css"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("p { display: none }");
    file.close();
    const QString html = "<style>@import url(" + QUrl::fromLocalFile(file.fileName()).toString()
                         + ");</style><p>seen</p>";
    EXPECT_EQ(HtmlText().plainText(html), "seen");
}
