#include "document/sampledocument.h"
#include "graph/transformnode.h"
#include "support/scopedsettings.h"
#include "transforms/frame/transform.h"

#include <gtest/gtest.h>

// What transforms with a top and a bottom input do when their inputs are moved on the canvas.

namespace {

struct MoveCase
{
    const char *typeName;
    QByteArray options;       ///< parameter elements
    QByteArray optionsBehind; ///< those that the moved item is to have
};

/// People on top or at the bottom, cities on the other side; connected to one item of the kind.
QByteArray documentWith(const char *typeName, const QByteArray &options, bool peopleOnTop)
{
    const QByteArray people = peopleOnTop ? "0|0" : "0|480";
    return documentText("<inputs><input id=\"1\" medium=\"1\" header=\"1\" file_type=\"0\" delimiter=\"1\""
                        " text=\"key%2Cage%0A2%2C30%0A1%2C40%0A1%2C50\" pos_v12=\""
                        + people
                        + "\"/><input id=\"2\" medium=\"1\" header=\"1\" file_type=\"0\" delimiter=\"1\""
                          " text=\"key%2Ccity%0A1%2CKelso%0A3%2CFoxley\" pos_v12=\"0|240\"/></inputs>"
                          "<transforms><transform id=\"3\" name=\""
                        + QByteArray(typeName) + "\" pos_v12=\"480|120\"><parameters>" + options
                        + "</parameters></transform></transforms><connections><connection start_id=\"1\" end_id=\"3\"/>"
                          "<connection start_id=\"2\" end_id=\"3\"/></connections>");
}

QByteArray option(const char *name, const char *value)
{
    return "<parameter name=\"" + QByteArray(name) + "\" value=\"" + value + "\"/>";
}

QString outcome(GraphScene &scene)
{
    const auto *node = qobject_cast<TransformNode *>(scene.nodeById(3));
    return node->datasetConst().toText(TextForm::CommaSeparated) + '\n' + node->resultText() + '\n'
           + node->warnings().join('\n');
}

} // namespace

TEST(InputOrder, FollowsTheItemsOnTheCanvas)
{
    const ScopedSettings settings;
    const QByteArray keys = option("Column_1", "1") + option("Column_2", "1");
    const QByteArray lookupKeys = option("Top_Lookup_Column", "1") + option("Bottom_Lookup_Column", "1");
    const QByteArray diffKeys = option("By", "Key%20columns") + option("Top_Key_Column", "1")
                                + option("Bottom_Key_Column", "1");
    const MoveCase cases[] = {
        {"Join", keys + option("Include_Non_Matching_1", "1"), keys + option("Include_Non_Matching_1", "1")},
        {"Intersect", keys, keys},
        {"Subtract", keys, keys},
        {"Lookup", lookupKeys + option("Bottom_Value_Column", "2"), lookupKeys},
        {"Difference", diffKeys, diffKeys},
        {"Difference", "", ""},
        {"Stack", "", ""},
        {"Cross", "", ""},
    };
    for (const MoveCase &c : cases) {
        SCOPED_TRACE(c.typeName);
        GraphScene moved;
        readText(documentWith(c.typeName, c.options, true), moved);
        moved.setAutoRunOn(true);
        moved.runTransforms(RunMode::Everything, true);
        const QString before = outcome(moved);
        Node *people = moved.nodeById(1);
        people->setPos(0, 480);
        moved.onPosChanged({people});

        GraphScene expected;
        readText(documentWith(c.typeName, c.optionsBehind, false), expected);
        expected.runTransforms(RunMode::Everything, true);
        EXPECT_EQ(outcome(moved), outcome(expected)) << "the move runs it anew with the inputs in their new order";
        EXPECT_NE(outcome(moved), before);

        people->setPos(240, 480);
        const QDateTime ran = moved.nodeById(3)->lastProcessed();
        moved.onPosChanged({people});
        EXPECT_EQ(moved.nodeById(3)->lastProcessed(), ran) << "a move that keeps the order runs nothing";
    }
}
