#include "app/twoscreenmode.h"

#include "app/mainactions.h"
#include "app/panelayout.h"
#include "panes/items/itempane.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSplitter>

TwoScreenMode::TwoScreenMode(ItemPane &pane, PaneLayout &layout, MainActions &actions)
    : m_pane(pane)
    , m_layout(layout)
    , m_actions(actions)
{
    connect(qApp, &QGuiApplication::screenAdded, this, &TwoScreenMode::onEnableTwoScreenMode);
    connect(qApp, &QGuiApplication::screenRemoved, this, &TwoScreenMode::onEnableTwoScreenMode);
    connect(&pane, &ItemPane::closed, this, [this] {
        if (m_isOn) {
            m_actions.viewTwoScreens->setChecked(false);
        }
    });
}

QScreen *TwoScreenMode::otherScreen(const QWidget &window)
{
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen != window.screen()) {
            return screen;
        }
    }
    return nullptr;
}

void TwoScreenMode::onTwoScreenModeToggled(bool on)
{
    QScreen *screen = on ? otherScreen(*m_layout.splitter()) : nullptr;
    if ((on && !screen) || on == m_isOn) {
        return;
    }
    m_isOn = on;
    m_actions.viewItemPane->setEnabled(!on);
    if (on) {
        m_actions.viewItemPane->setChecked(false);
        m_pane.setParent(nullptr);
        m_pane.setWindowTitle(QGuiApplication::applicationDisplayName());
        m_pane.setGeometry(screen->geometry());
        m_pane.showMaximized();
    } else {
        m_layout.takeRightPane();
    }
}

void TwoScreenMode::onEnableTwoScreenMode()
{
    const bool isPossible = QGuiApplication::screens().size() >= 2;
    m_actions.viewTwoScreens->setEnabled(isPossible);
    if (m_isOn && !isPossible) {
        m_actions.viewTwoScreens->setChecked(false);
    }
}
