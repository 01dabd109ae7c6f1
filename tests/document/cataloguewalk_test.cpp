#include "document/sampledocument.h"
#include "graph/transformnode.h"
#include "support/printers.h"
#include "support/scopedsettings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

// Each kind of transform as an item of a document: run, saved, read again and run again.

namespace {

constexpr int topId = 1;
constexpr int bottomId = 2;
constexpr int transformId = 3;

/// A document with one item of this kind below `inputCount` inputs of the same pasted table.
QByteArray documentWith(const char *typeName, int inputCount, const QByteArray &pasted)
{
    QByteArray inputs;
    QByteArray connections;
    for (int id = topId; id <= bottomId; ++id) {
        const QByteArray number = QByteArray::number(id);
        inputs += "<input id=\"" + number + "\" medium=\"1\" header=\"1\" file_type=\"0\" delimiter=\"1\" text=\""
                  + pasted + "\" pos_v12=\"0|" + QByteArray::number(200 * id) + "\"/>";
        if (id <= inputCount) {
            connections += "<connection start_id=\"" + number + "\" end_id=\"3\"/>";
        }
    }
    return documentText("<inputs>" + inputs + "</inputs><transforms><transform id=\"3\" name=\"" + QByteArray(typeName)
                        + "\" pos_v12=\"400|300\"><parameters/></transform></transforms><connections>" + connections
                        + "</connections>");
}

TransformNode *transformIn(GraphScene &scene)
{
    return qobject_cast<TransformNode *>(scene.nodeById(transformId));
}

/// Points every option for columns that is empty at the first ones, as a person would.
void chooseColumns(Transform &transform, const QList<ColumnId> &ids)
{
    for (Parameter *parameter : transform.parameters()) {
        if (parameter->kind() == Parameter::SingleColumn) {
            parameter->setValue(QVariant::fromValue(parameter->node()->datasetConst().columnId(ColumnIndex(0))));
        } else if (parameter->kind() == Parameter::MultipleColumns) {
            parameter->setValue(QVariant::fromValue(ids));
        } else if (parameter->kind() == Parameter::SortColumns || parameter->kind() == Parameter::PivotColumns) {
            parameter->setValue(QVariant::fromValue(QList<SortColumn>{{ids.first(), false}, {ids.last(), true}}));
        }
    }
}

/// Table and texts of the item, without what is the time of day or drawn anew each time.
QString outcome(const TransformNode &node)
{
    QString text = node.datasetConst().header().join('|') + '\n' + node.datasetConst().toText(TextForm::CommaSeparated)
                   + '\n' + node.resultText() + '\n' + node.warnings().join('\n') + '\n' + node.infos().join('\n');
    text.replace(QRegularExpression("\\d+/\\d+/\\d+ \\d\\d:\\d\\d:\\d\\d"), "{now}");
    text.replace(QRegularExpression("[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}"), "{uuid}");
    return text;
}

/// The words between stars in stored options are encoded like any text while they wait for their columns.
QByteArray decodedStars(QByteArray saved)
{
    return saved.replace("%2A", "*");
}

int inputsOf(const CatalogueRow &row)
{
    return row.maxInputs == 1 ? 1 : 2;
}

const QByteArray smallTable = "id%2Cname%2Cwhen%2Camount%0A1%2CAnn%2C1%2F2%2F2024%2C10.5%0A2%2Cbob%2C3%2F2%2F2024%2C7"
                              "%0A2%2C%2Cx%2C%0A10%2CZo%C3%AB%2C29%2F2%2F2024%2C-3";
const QByteArray onlyNames = "id%2Cname%2Cwhen%2Camount";

} // namespace

TEST(CatalogueWalk, EveryKindHasAClass)
{
    for (const CatalogueRow &row : Catalogue::rows()) {
        EXPECT_TRUE(row.create) << row.typeName;
    }
}

TEST(CatalogueWalk, EveryKindGivesTheSameAfterSavingAndReading)
{
    const ScopedSettings settings;
    for (const CatalogueRow &row : Catalogue::rows()) {
        for (const QByteArray &pasted : {smallTable, onlyNames}) {
            SCOPED_TRACE(std::string(row.typeName) + (pasted == onlyNames ? " without rows" : ""));
            GraphScene scene;
            readText(documentWith(row.typeName, inputsOf(row), pasted), scene);
            ASSERT_TRUE(transformIn(scene));
            scene.runTransforms(RunMode::Everything, true);
            const QList<ColumnId> ids = scene.nodeById(topId)->datasetConst().columnIds();
            ASSERT_EQ(ids.size(), 4);
            chooseColumns(*transformIn(scene)->transform(), {ids.at(1), ids.at(3)});
            scene.runTransforms(RunMode::Everything, true);
            const QByteArray saved = savedText(scene);

            GraphScene again;
            readText(saved, again);
            EXPECT_EQ(decodedStars(savedText(again)), decodedStars(saved)) << "options that wait for a run are kept";
            again.runTransforms(RunMode::Everything, true);
            ASSERT_TRUE(transformIn(again));
            EXPECT_EQ(outcome(*transformIn(again)), outcome(*transformIn(scene)));
            EXPECT_EQ(savedText(again), saved) << "after a run";
        }
    }
}

TEST(CatalogueWalk, EveryKindTellsOfMissingInputs)
{
    const ScopedSettings settings;
    for (const CatalogueRow &row : Catalogue::rows()) {
        SCOPED_TRACE(row.typeName);
        GraphScene scene;
        readText(documentWith(row.typeName, row.minInputs - 1, smallTable), scene);
        scene.runTransforms(RunMode::Everything, true);
        const QString expected = row.minInputs != row.maxInputs
                                     ? QStringLiteral("At least %1 upstream connections expected").arg(row.minInputs)
                                 : row.minInputs == 1 ? QStringLiteral("1 upstream connection expected")
                                                      : QStringLiteral("2 upstream connections expected");
        EXPECT_TRUE(transformIn(scene)->warnings().contains(expected))
            << transformIn(scene)->warnings().join('\n').toStdString();
        EXPECT_EQ(transformIn(scene)->state(), NodeState::Processed);
    }
}

TEST(CatalogueWalk, CopiesAndDuplicatesGiveTheSame)
{
    const ScopedSettings settings;
    for (const CatalogueRow &row : Catalogue::rows()) {
        SCOPED_TRACE(row.typeName);
        GraphScene scene;
        readText(documentWith(row.typeName, inputsOf(row), smallTable), scene);
        scene.runTransforms(RunMode::Everything, true);
        const QList<ColumnId> ids = scene.nodeById(topId)->datasetConst().columnIds();
        chooseColumns(*transformIn(scene)->transform(), {ids.at(1), ids.at(3)});
        scene.runTransforms(RunMode::Everything, true);
        const QString expected = outcome(*transformIn(scene));

        const std::unique_ptr<GraphScene> copy = scene.copy();
        EXPECT_TRUE(copy->sameAs(scene));
        EXPECT_EQ(transformIn(*copy)->state(), NodeState::NeedsProcessing);
        EXPECT_FALSE(transformIn(*copy)->datasetConst().hasColumns());
        copy->runTransforms(RunMode::Everything, true);
        EXPECT_EQ(outcome(*transformIn(*copy)), expected);
        EXPECT_EQ(savedText(*copy), savedText(scene));

        // The duplicate of the inputs is what the duplicate of the item reads.
        scene.nodeById(topId)->setSelected(true);
        scene.nodeById(bottomId)->setSelected(inputsOf(row) == 2);
        scene.duplicateBranch();
        EXPECT_FALSE(copy->sameAs(scene));
        ASSERT_EQ(scene.transformNodes(true).size(), 1);
        EXPECT_NE(scene.transformNodes(true).first(), transformIn(scene));
        scene.runTransforms(RunMode::Everything, true);
        EXPECT_EQ(outcome(*scene.transformNodes(true).first()), expected);
    }
}
