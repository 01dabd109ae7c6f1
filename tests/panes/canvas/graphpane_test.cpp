#include "panes/canvas/graphpane.h"

#include "graph/graphscene.h"
#include "support/scopedsettings.h"

#include <QCoreApplication>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

void turnWheelForward(GraphPane &pane, Qt::KeyboardModifiers modifiers)
{
    const QPointF middle = pane.viewport()->rect().center();
    QWheelEvent event(middle, pane.viewport()->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120), Qt::NoButton,
        modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(pane.viewport(), &event);
}

TEST(GraphPane, WheelDoesWhatTheSettingsSay)
{
    struct Case
    {
        const char *sentence;
        WheelBehaviour behaviour;
        Qt::KeyboardModifiers modifiers;
        int zoom; ///< 1 in, -1 out, 0 none
    };
    const Case cases[] = {
        {"scrolls", WheelBehaviour::Scroll, Qt::NoModifier, 0},
        {"scrolls, and zooms with Ctrl", WheelBehaviour::Scroll, Qt::ControlModifier, 1},
        {"zooms in", WheelBehaviour::ZoomIn, Qt::NoModifier, 1},
        {"zooms in, and scrolls with Ctrl", WheelBehaviour::ZoomIn, Qt::ControlModifier, 0},
        {"zooms out", WheelBehaviour::ZoomOut, Qt::NoModifier, -1},
        {"zooms out, and scrolls with Ctrl", WheelBehaviour::ZoomOut, Qt::ControlModifier, 0},
        {"does nothing", WheelBehaviour::Nothing, Qt::NoModifier, 0},
        {"does nothing with Ctrl either", WheelBehaviour::Nothing, Qt::ControlModifier, 0},
    };
    ScopedSettings settings;
    for (const Case &c : cases) {
        SCOPED_TRACE(c.sentence);
        settings->setMouseWheelBehaviour(c.behaviour);
        GraphScene scene;
        GraphPane pane;
        pane.setGraph(&scene);
        pane.onZoomFree();
        const double before = pane.scale();
        turnWheelForward(pane, c.modifiers);
        EXPECT_EQ(pane.scale() > before ? 1 : pane.scale() < before ? -1 : 0, c.zoom);
    }
}

} // namespace
