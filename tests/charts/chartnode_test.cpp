#include "charts/chartnode.h"
#include "graph/graphscene.h"
#include "inputnode/inputnode.h"
#include "support/printers.h"

#include <gtest/gtest.h>

TEST(ChartNode, ARunWithoutInputIsDoneAndSaysSo)
{
    ChartNode chart;
    chart.process(true, true);
    EXPECT_EQ(chart.state(), NodeState::Processed);
    EXPECT_EQ(chart.placeText(), QStringLiteral("Select a chart type"));
    EXPECT_EQ(chart.warnings(), QStringList(QStringLiteral("No transforms or inputs connected")));
    EXPECT_TRUE(chart.writtenFiles().isEmpty());
}

TEST(ChartNode, TwoConnectionsAreAsGoodAsNone)
{
    GraphScene scene;
    auto *chart = new ChartNode;
    scene.insertNode(chart, {});
    for (int i = 0; i < 2; ++i) {
        auto *source = new InputNode;
        scene.insertNode(source, {});
        scene.insertConnection(source, chart);
        source->setState(NodeState::Processed, false);
    }
    chart->process(true, false);
    EXPECT_EQ(chart->state(), NodeState::Processed);
    EXPECT_EQ(chart->warnings(), QStringList(QStringLiteral("No transforms or inputs connected")));
}

TEST(ChartNode, ACloneHasEverythingButData)
{
    ChartOptions options;
    options.type = ChartChoice::Pie;
    options.writeFile = true;
    options.path = QStringLiteral("/plots/{date}.png");
    ChartNode chart(options, 12);
    chart.setAlias(QStringLiteral("plot"));
    chart.setComment(QStringLiteral("why"));
    chart.setPos(3, 4);
    chart.setStoredColumns(QStringLiteral("1*0"), QStringLiteral("2*0"));
    const std::unique_ptr<ChartNode> copy(static_cast<ChartNode *>(chart.clone()));
    EXPECT_EQ(copy->id(), 12);
    EXPECT_EQ(copy->pos(), QPointF(3, 4));
    EXPECT_EQ(copy->summaryRow(), chart.summaryRow());
    EXPECT_EQ(copy->storedYColumns(), QStringLiteral("2*0"));
    EXPECT_EQ(copy->listName(), QStringLiteral("{date}.png"));

    options.y.labelAngle = 90;
    copy->setOptions(options);
    EXPECT_NE(copy->summaryRow(), chart.summaryRow()) << "each option counts as a change";
}

TEST(ChartNode, IsNamedByWhatItDrawsOrWrites)
{
    ChartNode chart;
    EXPECT_EQ(chart.name(), QStringLiteral("Chart"));
    ChartOptions options;
    options.type = ChartChoice::SmoothLine;
    options.path = QStringLiteral("/plots/a.png");
    chart.setOptions(options);
    EXPECT_EQ(chart.name(), QStringLiteral("Smooth Line"));
    EXPECT_EQ(chart.listName(), QStringLiteral("Smooth Line"));
    chart.setWritesFile(true);
    EXPECT_EQ(chart.listName(), QStringLiteral("a.png"));
    EXPECT_EQ(chart.displaySizeText(), QStringLiteral("0 series / 0 points"));
    EXPECT_TRUE(chart.isEmpty());
}
