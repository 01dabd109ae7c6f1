#include "panes/items/itemwidget.h"

#include "graph/node.h"
#include "panes/dialogs/helphook.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>

ItemWidget::ItemWidget(Node &node, QWidget *parent)
    : QWidget(parent)
    , m_node(&node)
{
    HelpHook::setHelpPage(*this, node.helpPage());
}

ItemWidget::~ItemWidget() = default;

Node *ItemWidget::node() const
{
    return m_node;
}

UndoStep::Kind ItemWidget::kindOfEdit()
{
    return qobject_cast<QLineEdit *>(QApplication::focusWidget()) ? UndoStep::Typing : UndoStep::Single;
}

void ItemWidget::setNodeComment(const QString &text)
{
    if (m_node && text != m_node->comment()) {
        const UndoStep step(*m_node, QStringLiteral("comment changed"));
        m_node->setComment(text);
        emit nodeCommentChanged(m_node);
    }
}

void ItemWidget::showFullscreen(bool on)
{
    if (on == isFullScreen()) {
        return;
    }
    if (on) {
        setParent(nullptr);
        setWindowTitle(m_node ? m_node->labelWithId() : QString());
        showFullScreen();
        activateWindow();
    } else {
        setWindowState(windowState() & ~Qt::WindowFullScreen);
        emit fullScreenReleased(this);
    }
}

void ItemWidget::closeEvent(QCloseEvent *event)
{
    if (isWindow()) {
        // The panel lives on in its pane.
        event->ignore();
        showFullscreen(false);
        emit closed();
    }
}

void ItemWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && isWindow()) {
        showFullscreen(false);
        return;
    }
    QWidget::keyPressEvent(event);
}
