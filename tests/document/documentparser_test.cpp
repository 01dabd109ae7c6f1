#include "document/documentparser.h"
#include "document/markup.h"
#include "support/printers.h"

#include <QDomDocument>
#include <gtest/gtest.h>

namespace {

QDomElement tree(QDomDocument &document, int version, const QString &body)
{
    const QString text = QStringLiteral("<!DOCTYPE Quillmere><root><meta><version value=\"%1\"/></meta>%2</root>")
                             .arg(QString::number(version), body);
    MarkupError error;
    EXPECT_TRUE(parseMarkup(text.toUtf8(), document, error)) << error.text.toStdString();
    return document.documentElement();
}

DocumentRecords parsed(int version, const QString &body)
{
    QDomDocument document;
    return parseDocument(tree(document, version, body));
}

BatchSettings parsedBatch(int version, const QString &body)
{
    QDomDocument document;
    return parseBatchSettings(tree(document, version, body), version);
}

} // namespace

TEST(DocumentParser, MetaHasADefaultForEachField)
{
    QDomDocument document;
    MarkupError error;
    ASSERT_TRUE(parseMarkup("<!DOCTYPE Quillmere><root/>", document, error));
    const DocumentMeta empty = parseDocument(document.documentElement()).meta;
    EXPECT_EQ(empty.version, 86);
    EXPECT_FALSE(empty.snapToGrid);
    EXPECT_TRUE(empty.autoRunOn);
    EXPECT_TRUE(empty.locale.isEmpty() && empty.notes.isEmpty() && empty.docPath.isEmpty());

    ASSERT_TRUE(parseMarkup("<!DOCTYPE Quillmere><root><meta><locale value=\"de_DE\"/><version value=\"71\"/>"
                            "<snap_to_grid value=\"1\"/><notes value=\"a%0Ab\"/><doc_path value=\"C%3A%5Cx\"/>"
                            "<auto_run_on value=\"0\"/><news value=\"?\"/></meta></root>",
        document, error));
    const DocumentMeta meta = parseDocument(document.documentElement()).meta;
    EXPECT_EQ(meta.version, 71);
    EXPECT_EQ(meta.locale, QStringLiteral("de_DE"));
    EXPECT_TRUE(meta.snapToGrid);
    EXPECT_EQ(meta.notes, QStringLiteral("a\nb"));
    EXPECT_EQ(meta.docPath, QStringLiteral("C:\\x"));
    EXPECT_FALSE(meta.autoRunOn);
}

TEST(DocumentParser, OldAttributesAreBroughtUpToDate)
{
    const struct
    {
        const char *what;
        int version;
        const char *attributes;
        bool hidden;
        bool hasComment;
    } cases[] = {
        {"one switch hid columns and rows before version 72", 71, "ignore_excel_hidden=\"1\"", true, false},
        {"it is unknown from 72 on", 72, "ignore_excel_hidden=\"1\"", false, false},
        {"files had a comment before version 61", 60, "", false, true},
        {"not from 61 on", 61, "", false, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const DocumentRecords records = parsed(
            c.version, QStringLiteral("<inputs><input id=\"1\" %1/></inputs><outputs><output id=\"2\"/></outputs>")
                           .arg(QString::fromLatin1(c.attributes)));
        EXPECT_EQ(records.inputs.at(0).options.ignoreHiddenColumns, c.hidden);
        EXPECT_EQ(records.inputs.at(0).options.ignoreHiddenRows, c.hidden);
        EXPECT_EQ(records.outputs.at(0).options.fileComment,
            c.hasComment ? QStringLiteral(" File created by Quillmere {version} at {date} {time} ") : QString());
    }
}

TEST(DocumentParser, OptionsAreReadInOrderAndRepaired)
{
    const DocumentRecords records = parsed(
        57, QStringLiteral("<transforms><transform id=\"3\" name=\"Random\" pos=\"10^20\"><parameters>"
                           "<parameter name=\"Columns\" type=\"1\" value=\"1^2\"/>"
                           "<parameter name=\"Maximum_Int\" type=\"8\" value=\"11\"/>"
                           "<parameter name=\"Text%20x\" value=\"a%20b%1Fc\"/>"
                           "<parameter/></parameters></transform></transforms>"));
    ASSERT_EQ(records.transforms.size(), 1);
    const TransformRecord &transform = records.transforms.at(0);
    EXPECT_EQ(transform.position, QPointF(10, 20));
    ASSERT_EQ(transform.parameters.size(), 4);
    EXPECT_EQ(transform.parameters.at(0).value, QStringLiteral("1^2"));
    EXPECT_EQ(transform.parameters.at(1).value, QStringLiteral("10"));
    EXPECT_EQ(transform.parameters.at(2).name, QStringLiteral("Text x"));
    EXPECT_EQ(transform.parameters.at(2).value, QStringLiteral("a b\u001fc")) << "decoded once, as a whole";
}

TEST(DocumentParser, OnlyItemsWithAnIdCount)
{
    const struct
    {
        const char *what;
        const char *body;
        std::vector<int> ids;
    } cases[] = {
        {"no id, no number, -1, negative, too large",
            "<notes><note/><note id=\"x\"/><note id=\"-1\"/><note id=\"-7\"/><note id=\"2147483647\"/>"
            "<note id=\"99999999999\"/><note id=\"4\"/></notes>",
            {4}},
        {"0 is an id", "<notes><note id=\"0\"/></notes>", {0}},
        {"a repeated id gets the next free one", "<notes><note id=\"5\"/><note id=\"5\"/><note id=\"6\"/></notes>",
            {5, 7, 6}},
        {"also across kinds", "<notes><note id=\"1\"/></notes><inputs><input id=\"1\"/></inputs>", {1, 2}},
        {"other elements between them are ignored", "<news/><notes><x id=\"1\"/><note id=\"2\"/>text</notes>", {2}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const DocumentRecords records = parsed(86, QString::fromLatin1(c.body));
        std::vector<int> ids;
        for (const InputRecord &input : records.inputs) {
            ids.push_back(input.id);
        }
        for (const NoteRecord &note : records.notes) {
            ids.push_back(note.id);
        }
        EXPECT_EQ(ids, c.ids);
    }
}

TEST(DocumentParser, BatchSettingsOfEachAge)
{
    const struct
    {
        const char *what;
        int version;
        const char *logging;
        int verbosity;
        bool enabled;
        int mode;
        const char *path;
    } cases[] = {
        {"a whole element", 86, "<batch_logging verbosity=\"4\" enabled=\"1\" mode=\"1\" path=\"%2Flog\"/>", 4, true, 1,
            "/log"},
        {"an element without attributes", 86, "<batch_logging/>", 2, false, 0, ""},
        {"no element", 86, "", 2, false, 0, ""},
        {"a level that there isn't", 86, "<batch_logging verbosity=\"5\" mode=\"9\"/>", 2, false, 0, ""},
        {"silent is a level", 84, "<batch_logging verbosity=\"0\"/>", 0, false, 0, ""},
        {"verbose off, before version 84", 83, "<batch_logging verbose=\"0\" verbosity=\"4\"/>", 1, false, 0, ""},
        {"verbose absent", 83, "<batch_logging/>", 1, false, 0, ""},
        {"verbose on", 40, "<batch_logging verbose=\"1\" enabled=\"1\"/>", 2, true, 0, ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const BatchSettings batch = parsedBatch(c.version, QString::fromLatin1(c.logging));
        EXPECT_EQ(batch.verbosity, c.verbosity);
        EXPECT_EQ(batch.loggingEnabled, c.enabled);
        EXPECT_EQ(batch.logMode, c.mode);
        EXPECT_EQ(batch.logPath, QString::fromLatin1(c.path));
    }
    const BatchSettings batch = parsedBatch(86,
        QStringLiteral(
            "<batch_values><batch_value alias=\"in\" value=\"%2Aa.csv\"/>"
            "<batch_value row=\"2\" alias=\"out\" value=\"b%20c\"/><batch_value row=\"-1\" alias=\"x\" value=\"1\"/>"
            "<batch_value row=\"2000000000\" alias=\"x\" value=\"1\"/><batch_value row=\"1\" "
            "value=\"1\"/></batch_values>"));
    EXPECT_EQ(batch.values.size(), 2);
    EXPECT_EQ(batch.values.value({0, QStringLiteral("in")}), QStringLiteral("*a.csv"));
    EXPECT_EQ(batch.values.value({2, QStringLiteral("out")}), QStringLiteral("b c"));
}
