#include "charts/chartnode.h"
#include "document/sampledocument.h"
#include "graph/connection.h"
#include "graph/notenode.h"
#include "graph/transformnode.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputnode.h"
#include "support/printers.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using Ends = std::vector<std::pair<int, int>>;

Ends connectionsIn(const GraphScene &scene)
{
    Ends ends;
    for (const Connection *connection : scene.connections()) {
        ends.emplace_back(connection->from()->id(), connection->to()->id());
    }
    std::sort(ends.begin(), ends.end());
    return ends;
}

QByteArray connection(int start, int end)
{
    return "<connection start_id=\"" + QByteArray::number(start) + "\" end_id=\"" + QByteArray::number(end) + "\"/>";
}

} // namespace

TEST(DocumentBuilder, MakesEachItemWithItsOptions)
{
    GraphScene scene;
    const DocumentContents contents = readText(fullDocument(), scene);
    std::vector<int> ids;
    for (const Node *node : contents.nodes) {
        ids.push_back(node->id());
    }
    EXPECT_EQ(ids, (std::vector<int>{0, 2, 3, 5, 6, 7}));
    EXPECT_EQ(connectionsIn(scene), (Ends{{0, 2}, {2, 3}, {7, 5}}));
    EXPECT_FALSE(contents.laterVersion || contents.relocated);
    EXPECT_EQ(contents.notAdded, QString());
    EXPECT_EQ(contents.repairs, QStringList()) << "nothing is wrong with this document";

    const auto *input = qobject_cast<InputNode *>(contents.nodesById.value(0));
    ASSERT_TRUE(input);
    EXPECT_EQ(input->path(), QStringLiteral("/nowhere/in.csv"));
    EXPECT_EQ(input->comment(), QString::fromUtf8("<100%>\né"));
    EXPECT_EQ(input->customDelimiter(), QLatin1Char('|'));
    EXPECT_EQ(input->state(), NodeState::NeedsProcessing);
    const auto *transform = qobject_cast<TransformNode *>(contents.nodesById.value(2));
    ASSERT_TRUE(transform);
    EXPECT_EQ(transform->pos(), QPointF(239.4, -10));
    EXPECT_EQ(transform->typeName(), QStringLiteral("Pad"));
    const auto *output = qobject_cast<OutputNode *>(contents.nodesById.value(3));
    ASSERT_TRUE(output);
    EXPECT_EQ(output->writeMode(), WriteMode::Disabled);
    EXPECT_EQ(output->storedJsonTypes(), QStringLiteral("1\u001f2"));
    const auto *chart = qobject_cast<ChartNode *>(contents.nodesById.value(5));
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->options().opacity, 50);
    const auto *note = qobject_cast<NoteNode *>(contents.nodesById.value(6));
    ASSERT_TRUE(note);
    EXPECT_EQ(note->color(), QColor(255, 250, 200));
}

TEST(DocumentBuilder, OptionsWaitForTheTableUpstreamAndAreSavedAsTheyWere)
{
    GraphScene scene;
    const DocumentContents contents = readText(fullDocument(), scene);
    const auto *node = qobject_cast<TransformNode *>(contents.nodesById.value(2));
    ASSERT_TRUE(node);
    const Parameter *columns = node->transform()->parameter(QStringLiteral("Columns"));
    ASSERT_TRUE(columns);
    EXPECT_TRUE(columns->hasDeferredText());
    EXPECT_EQ(columns->node(), contents.nodesById.value(0));
    const QByteArray saved = savedText(scene).replace(0x1F, '|');
    for (const char *value : {"value=\"1|3\"", "value=\"12\"", "value=\"Right\"", "value=\"%5E\""}) {
        SCOPED_TRACE(value);
        EXPECT_TRUE(saved.contains(value));
    }
}

TEST(DocumentBuilder, ColumnReferencesOutliveTheTableUpstream)
{
    GraphScene scene;
    const DocumentContents contents = readText(
        documentText(
            "<inputs><input id=\"1\" medium=\"1\" text=\"a%2Cb%0A1%2C2\" header=\"1\"/></inputs>"
            "<charts><chart id=\"2\" chart_type=\"1\" chart_x_column=\"2*0\" chart_y_columns=\"1*0\"/></charts>"
            "<outputs><output id=\"3\" enable_output=\"0\" multi_file_column=\"2\"/></outputs><connections>"
            + connection(1, 2) + connection(1, 3) + "</connections>"),
        scene);
    scene.runTransforms(RunMode::Everything, true);
    const auto *chart = qobject_cast<ChartNode *>(contents.nodesById.value(2));
    EXPECT_EQ(chart->state(), NodeState::Processed);
    EXPECT_EQ(chart->columns().x(), ColumnId(1, 2));
    const QByteArray saved = savedText(scene);
    for (const char *part : {"chart_x_column=\"2*0\"", "chart_y_columns=\"1*0\"", "multi_file_column=\"2\""}) {
        SCOPED_TRACE(part);
        EXPECT_TRUE(saved.contains(part));
    }
    contents.nodesById.value(1)->clearDataset();
    EXPECT_EQ(savedText(scene).toStdString(), saved.toStdString()) << "as after a failed reading";
}

TEST(DocumentBuilder, UnknownTransformsDisappearWithTheirConnections)
{
    GraphScene scene;
    const DocumentContents contents = readText(
        documentText(
            "<inputs><input id=\"1\"/></inputs><transforms><transform id=\"2\" name=\"Trim\"/>"
            "<transform id=\"3\" name=\"Teleport\"/><transform id=\"4\" name=\"Pad\"/></transforms><connections>"
            + connection(1, 2) + connection(2, 4) + connection(1, 4) + connection(3, 4) + "</connections>"),
        scene);
    EXPECT_EQ(contents.nodes.size(), 2);
    EXPECT_EQ(connectionsIn(scene), (Ends{{1, 4}}));
    EXPECT_EQ(contents.repairs, QStringList()) << "the text below says it all";
    EXPECT_EQ(contents.notAdded,
        QStringLiteral("The following deprecated transforms were not added:\n"
                       "'Trim' (1 occurrence) - use the newer 'Whitespace' transform.\n\n"
                       "The following unknown transforms were not added:\n'Teleport' (1 occurrence)"));
}

TEST(DocumentBuilder, ConnectionsThatCannotBeAreDroppedAndToldOf)
{
    const QByteArray items = "<inputs><input id=\"1\"/></inputs><transforms><transform id=\"2\" name=\"Pad\"/>"
                             "<transform id=\"3\" name=\"Pad\"/></transforms><outputs><output id=\"4\"/></outputs>"
                             "<charts><chart id=\"5\"/></charts><notes><note id=\"6\"/></notes>";
    const struct
    {
        const char *what;
        QByteArray connections;
        Ends kept;
        QStringList repairs;
    } cases[] = {
        {"ends that there aren't", connection(1, 9) + connection(-1, 2) + connection(1, -1) + "<connection/>", {},
            {"4 connections were removed, as there are no such items: 1 to 9, -1 to 2, 1 to -1, -1 to -1"}},
        {"to itself", connection(2, 2), {},
            {"1 connection was removed, as it closed a circle: 2 to 2", "1 item was part of a circle: Pad (2)"}},
        {"into an input or a note", connection(2, 1) + connection(1, 6), {},
            {"2 connections were removed, as they lead into items that take none: 2 to 1, 1 to 6"}},
        {"out of an output, a chart or a note", connection(4, 2) + connection(5, 2) + connection(6, 2), {},
            {"3 connections were removed, as they lead out of items that give none: 4 to 2, 5 to 2, 6 to 2"}},
        {"in a circle", connection(1, 2) + connection(2, 3) + connection(3, 2), {{1, 2}, {2, 3}},
            {"1 connection was removed, as it closed a circle: 3 to 2",
                "2 items were part of circles: Pad (2), Pad (3)"}},
        {"repeated, more often than is listed",
            connection(1, 2) + connection(1, 2) + connection(1, 2) + connection(1, 2) + connection(1, 2)
                + connection(1, 2) + connection(1, 2) + connection(1, 2),
            {{1, 2}}, {"7 repeated connections were removed: 1 to 2, 1 to 2, 1 to 2, 1 to 2, 1 to 2, + 2 others"}},
        {"more than an item takes: the run says so", connection(1, 4) + connection(2, 4), {{1, 4}, {2, 4}}, {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        GraphScene scene;
        const DocumentContents contents = readText(
            documentText(items + "<connections>" + c.connections + "</connections>"), scene);
        EXPECT_EQ(connectionsIn(scene), c.kept);
        EXPECT_EQ(contents.repairs, c.repairs);
    }
}

TEST(DocumentBuilder, ItemsWithIdsThatCannotBeAreToldOf)
{
    GraphScene scene;
    const DocumentContents contents = readText(
        documentText("<inputs><input id=\"-3\"/><input id=\"1\"/><input id=\"1000000001\"/></inputs>"
                     "<outputs><output id=\"1\"/><output/></outputs><notes><note id=\""
                     + QByteArray(1000, 'x') + "\"/></notes>"),
        scene);
    EXPECT_EQ(contents.nodes.size(), 2);
    EXPECT_EQ(contents.repairs,
        (QStringList{"4 items were left out, as their ids aren't numbers from 0 to 1000000000: input '-3', "
                     "input '1000000001', output '', note '"
                         + QString(34, 'x') + "...",
            "1 item was given a new id, as another item has the same: 1 is now 2"}));
}

TEST(DocumentBuilder, TypesThatTheDocumentLeavesOpenFollowTheNameOrTheText)
{
    const struct
    {
        const char *what;
        const char *attributes;
        int type;
    } cases[] = {
        {"a known extension", "file_type=\"11\" path=\"a.JSON\"", FileType::Json},
        {"with blanks round it, which go", "path=\"%20a.json%20%20\"", FileType::Json},
        {"an unknown one", "path=\"a.unknown\"", FileType::Delimited},
        {"one value a line", "path=\"a.ndjson\"", FileType::Json},
        {"none at all", "", FileType::Delimited},
        {"a stated type goes before the extension", "file_type=\"3\" path=\"a.json\"", FileType::FixedWidth},
        {"a negative type", "file_type=\"-4\" path=\"a.xlsx\"", FileType::ExcelXlsx},
        {"pasted JSON", "text=\"%20%5B1%5D\"", FileType::Json},
        {"pasted XML", "text=\"%3Ca%2F%3E\"", FileType::Xml},
        {"a pasted card", "text=\"BEGIN%3AVCARD\"", FileType::VCard},
        {"pasted cells", "text=\"a%09b\"", FileType::Delimited},
        {"a folder, by what it matches", "medium=\"2\" multi_file_folder=\"%2Fx\" multi_file_match=\"%2A.xml\"",
            FileType::Xml},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        GraphScene scene;
        const DocumentContents contents = readText(
            documentText(QByteArray("<inputs><input id=\"1\" ") + c.attributes + "/></inputs>"), scene);
        const auto *input = qobject_cast<InputNode *>(contents.nodesById.value(1));
        ASSERT_TRUE(input);
        EXPECT_EQ(input->fileType(), c.type);
    }
}

TEST(DocumentBuilder, TypesOfOutputsFollowTheCleanName)
{
    GraphScene scene;
    const DocumentContents contents = readText(
        documentText("<outputs><output id=\"1\" path=\"%2Fd%2Fout.xlsx%20\"/></outputs>"), scene);
    const auto *output = qobject_cast<OutputNode *>(contents.nodesById.value(1));
    ASSERT_TRUE(output);
    EXPECT_EQ(output->fileType(), FileType::ExcelXlsx);
    EXPECT_EQ(output->path(), QStringLiteral("/d/out.xlsx"));
}

TEST(DocumentBuilder, ItemsWithAPathGetAnAlias)
{
    GraphScene scene;
    const DocumentContents contents = readText(
        documentText("<inputs><input id=\"1\" path=\"%2Fd%2Forders.csv\"/><input id=\"2\" path=\"%2Fe%2Forders.csv\"/>"
                     "<input id=\"3\" alias=\"orders\"/><input id=\"4\" text=\"a\"/></inputs>"
                     "<outputs><output id=\"5\" path=\"%2Fd%2Fout.csv\"/><output id=\"6\"/></outputs>"
                     "<charts><chart id=\"7\" path=\"%2Fd%2Fplot.png\"/></charts>"),
        scene);
    const std::pair<int, const char *> expected[] = {
        {1, "orders1"}, {2, "orders2"}, {3, "orders"}, {4, ""}, {5, "out"}, {6, ""}, {7, "plot"}};
    for (const auto &[id, alias] : expected) {
        SCOPED_TRACE(id);
        EXPECT_EQ(contents.nodesById.value(id)->alias(), QString::fromLatin1(alias));
    }
}

TEST(DocumentBuilder, FindsFilesThatMovedWithTheDocument)
{
    const QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("in.csv")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QByteArray text = "<!DOCTYPE Quillmere><root><meta><doc_path value=\"%2Fold%2Fa.transform\"/></meta>"
                            "<inputs><input id=\"1\" path=\"%2Fold%2Fin.csv\"/>"
                            "<input id=\"4\" medium=\"2\" multi_file_folder=\"%2Fold\"/></inputs>"
                            "<outputs><output id=\"2\" path=\"%2Fold%2Fout.csv\"/></outputs>"
                            "<charts><chart id=\"3\" path=\"%2Fold%2Fplot.png\"/></charts></root>";
    GraphScene scene;
    const DocumentContents moved = readText(text, scene, dir.filePath(QStringLiteral("a.transform")));
    EXPECT_TRUE(moved.relocated);
    EXPECT_EQ(qobject_cast<InputNode *>(moved.nodesById.value(1))->path(), file.fileName());
    EXPECT_EQ(qobject_cast<InputNode *>(moved.nodesById.value(4))->options().folder.folder, dir.path());
    EXPECT_EQ(qobject_cast<OutputNode *>(moved.nodesById.value(2))->path(), dir.filePath(QStringLiteral("out.csv")));
    EXPECT_EQ(qobject_cast<ChartNode *>(moved.nodesById.value(3))->path(), dir.filePath(QStringLiteral("plot.png")));
    EXPECT_EQ(moved.nodesById.value(1)->alias(), QStringLiteral("in"));
}

TEST(DocumentBuilder, TellsOfALaterVersionAndReadsOn)
{
    GraphScene scene;
    const DocumentContents later = readText(
        documentText("<inputs><input id=\"1\" new_thing=\"1\"/></inputs><robots><robot id=\"2\"/></robots>", 87),
        scene);
    EXPECT_TRUE(later.laterVersion);
    EXPECT_EQ(later.nodes.size(), 1);
    EXPECT_FALSE(readText(documentText(""), scene).laterVersion);
}
