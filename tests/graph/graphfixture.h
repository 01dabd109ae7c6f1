#pragma once

#include "fakenodes.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/runcontrol.h"
#include "graph/transformnode.h"
#include "support/grid.h"
#include "support/scopedsettings.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <initializer_list>

/// A scene with a run log; positions are given in steps of the grid. Auto run is off unless a test turns it on.
class GraphTest : public testing::Test
{
protected:
    GraphTest();
    ~GraphTest() override;

    /// A name goes into the node's alias, by which the tests tell nodes apart.
    FakeInput *input(
        const QString &name, double column, double row, const Dataset &table = grid({"a|b", "1|x", "2|y"}));
    FakeOutput *output(const QString &name, double column, double row, Node *source = nullptr);
    TransformNode *transform(const QString &type, const QString &name, double column, double row,
        std::initializer_list<Node *> sources, const char *firstOption = nullptr);
    TransformNode *probe(const QString &name, double column, double row, std::initializer_list<Node *> sources,
        const char *typeName = "Transpose");
    static ProbeTransform *probeOf(TransformNode *node);
    void place(Node *node, const QString &name, double column, double row);
    void select(std::initializer_list<QGraphicsItem *> items);
    /// The names of what has been processed since the last call, in order.
    QStringList takeProcessed();
    /// "a>b" for each connection, sorted.
    QStringList edges() const;
    void run(RunMode mode = RunMode::Everything) { scene.runTransforms(mode, true); }

    ScopedSettings settings;
    GraphScene scene;
    QStringList processed;
    QStringList log;
    QStringList warnings;
};
