#include "app/commands/viewcommands.h"

#include "app/application.h"
#include "app/documentsession.h"
#include "app/mainactions.h"
#include "app/panelayout.h"
#include "app/twoscreenmode.h"
#include "app/uithemes.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/canvas/graphpane.h"
#include "panes/canvas/timingprofile.h"
#include "panes/dialogs/prompts.h"
#include "panes/explore/finditemsdialog.h"
#include "panes/explore/nodesummarydialog.h"
#include "panes/items/itempane.h"
#include "panes/status/logpane.h"
#include "panes/widgets/tips.h"
#include "settings/settings.h"

#include <QSignalBlocker>
#include <QToolBar>

namespace {

constexpr int colorsTipMs = 20000;

} // namespace

ViewCommands::ViewCommands(const CommandContext &context, MainActions &actions)
    : m_context(context)
    , m_actions(actions)
    , m_themes(std::make_unique<UiThemes>(context.application, actions))
    , m_twoScreens(std::make_unique<TwoScreenMode>(context.itemPane, context.layout, actions))
{
    QObject::connect(m_themes.get(), &UiThemes::logMessage, &context.logPane, &LogPane::onShowLogMessage);
}

ViewCommands::~ViewCommands() = default;

void ViewCommands::selectIconsOfType(NodeStatusIcon icon)
{
    GraphScene &scene = m_context.session.scene();
    scene.clearSelection();
    for (Node *node : scene.nodes()) {
        node->setSelected(node->statusIcon() == icon);
    }
    zoomSelected();
}

void ViewCommands::toggleTheme()
{
    m_themes->toggle();
    Tips::showOnce(QStringLiteral("top_center_pane_colors"), QStringLiteral("Center pane colors"),
        QStringLiteral("You can change the Center pane colors in the 'Colors' tab of the 'Preferences' window."),
        colorsTipMs, &m_context.graphPane);
}

void ViewCommands::setZoomFit(bool on)
{
    on ? m_context.graphPane.onZoomToFit() : m_context.graphPane.onZoomFree();
}

void ViewCommands::zoomIn()
{
    m_context.graphPane.onZoomIn();
}

void ViewCommands::zoomOut()
{
    m_context.graphPane.onZoomOut();
}

void ViewCommands::zoomSelected()
{
    m_context.graphPane.onZoomSelected();
}

void ViewCommands::setCommentsShown(bool on)
{
    m_context.application.settings().setShowComments(on);
    m_context.session.scene().refresh();
}

void ViewCommands::setChangesShown(bool on)
{
    m_context.application.settings().setShowChanges(on);
    m_context.session.scene().refresh();
}

void ViewCommands::setWarningsShown(bool on)
{
    m_context.application.settings().setShowWarnings(on);
    m_context.session.scene().refresh();
}

void ViewCommands::setToolTips(CanvasTips tips, bool on)
{
    if (on) {
        m_context.application.settings().setShowCenterPaneTips(tips);
    }
}

void ViewCommands::setMagnified(bool on)
{
    m_context.graphPane.onMagnifyUnderCursor(on);
}

void ViewCommands::setTimingProfileShown(bool on)
{
    showTimingProfile(m_context.session.scene(), on);
}

void ViewCommands::updateTimingProfile()
{
    setTimingProfileShown(m_actions.viewTimingProfile->isChecked());
}

void ViewCommands::connectByKeyboard()
{
    m_context.graphPane.onConnectByKeyboard();
}

void ViewCommands::showFullscreen()
{
    m_context.itemPane.showFullscreen();
}

void ViewCommands::findItems()
{
    if (!m_find) {
        GraphPane *pane = &m_context.graphPane;
        DocumentSession *session = &m_context.session;
        m_find = new FindItemsDialog([session]() -> GraphScene & { return session->scene(); },
            [pane](Node &node) { pane->ensureVisible(&node); }, [pane] { pane->onZoomSelected(); }, &m_context.window);
    }
    m_find->open();
}

void ViewCommands::viewNodeSummary()
{
    NodeSummaryDialog dialog(m_context.session.scene(), m_context.prompts);
    m_context.prompts.exec(dialog);
}

void ViewCommands::setActionPaneShown(bool on)
{
    m_context.layout.onActionPaneVisibilityToggled(on);
}

void ViewCommands::setItemPaneShown(bool on)
{
    m_context.layout.onItemPaneVisibilityToggled(on);
}

void ViewCommands::setTwoScreens(bool on)
{
    m_twoScreens->onTwoScreenModeToggled(on);
}

bool ViewCommands::isInTwoScreens() const
{
    return m_twoScreens->isOn();
}

void ViewCommands::setToolBarShown(bool on)
{
    m_actions.toolBar->setVisible(on);
}

void ViewCommands::setLogShown(bool on)
{
    m_context.logPane.setVisible(on);
}

void ViewCommands::fitDocument()
{
    m_actions.viewZoomFit->setChecked(true);
    m_context.graphPane.onZoomToFit();
}

void ViewCommands::onZoomChanged()
{
    const QSignalBlocker blocker(m_actions.viewZoomFit);
    m_actions.viewZoomFit->setChecked(m_context.graphPane.isAutoZoom());
}
