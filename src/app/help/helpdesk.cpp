#include "app/help/helpdesk.h"

#include "app/documentsession.h"
#include "app/help/helpwindow.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/actions/panebutton.h"
#include "panes/canvas/graphpane.h"
#include "panes/dialogs/helphook.h"
#include "panes/items/itempane.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QToolTip>

namespace {

const QString introduction = QStringLiteral("Introduction");

/// The button whose tip is on the screen, which says that this key helps.
const PaneButton *buttonWithTip()
{
    return QToolTip::isVisible() ? qobject_cast<PaneButton *>(QApplication::widgetAt(QCursor::pos())) : nullptr;
}

} // namespace

HelpDesk::HelpDesk(const CommandContext &context)
    : m_context(context)
{
    HelpHook::install([this](QWidget *from, const QString &page) { showPage(page, from); });
    connect(&m_context.itemPane, &ItemPane::helpRequested, this,
        [this](const QString &page) { showPage(page, &m_context.itemPane); });
    qApp->installEventFilter(this);
}

HelpDesk::~HelpDesk()
{
    HelpHook::install({});
}

HelpWindow &HelpDesk::window()
{
    if (!m_window) {
        m_window = std::make_unique<HelpWindow>();
    }
    return *m_window;
}

void HelpDesk::showPage(const QString &page, QWidget *from)
{
    window().showPage(page, from ? from : &m_context.window);
}

void HelpDesk::showContextPage(QWidget *focus)
{
    showPage(contextPage(focus), focus);
}

QString HelpDesk::contextPage(const QWidget *focus) const
{
    if (const PaneButton *button = buttonWithTip()) {
        return button->helpPage();
    }
    const QString page = HelpHook::helpPageOf(focus);
    if (!page.isEmpty()) {
        return page;
    }
    const bool onCanvas = focus == &m_context.graphPane || m_context.graphPane.isAncestorOf(focus);
    const QList<Node *> selected = onCanvas ? m_context.session.scene().nodes(true) : QList<Node *>();
    return selected.size() == 1 ? selected.first()->helpPage() : introduction;
}

bool HelpDesk::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent *>(event)->key() != Qt::Key_F1
        || !watched->isWidgetType()) {
        return false;
    }
    // In the main window F1 is the key of a command.
    auto *widget = static_cast<QWidget *>(watched);
    if (widget->window() == &m_context.window || widget->window() == m_window.get()
        || static_cast<QKeyEvent *>(event)->modifiers() != Qt::NoModifier) {
        return false;
    }
    showContextPage(widget);
    return true;
}
