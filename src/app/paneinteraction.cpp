#include "app/paneinteraction.h"

#include "panes/actions/actionpane.h"
#include "panes/canvas/graphpane.h"
#include "panes/items/itempane.h"
#include "panes/status/logpane.h"

void PaneInteraction::allow(bool allow)
{
    if (!allow) {
        m_focus = m_context.window.focusWidget();
    }
    m_context.actionPane.setEnabled(allow);
    m_context.graphPane.setEnabled(allow);
    m_context.graphPane.setRunning(!allow);
    m_context.itemPane.setInteraction(allow);
    m_context.logPane.setEnabled(allow);
    if (allow && m_focus) {
        m_focus->setFocus(Qt::OtherFocusReason);
    }
}
