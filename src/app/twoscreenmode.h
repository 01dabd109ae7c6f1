#pragma once

#include <QObject>
#include <QTimer>

class ItemPane;
class PaneLayout;
class QScreen;
struct MainActions;

/// Shows the right pane in a window of its own on a second screen.
class TwoScreenMode : public QObject
{
    Q_OBJECT

public:
    TwoScreenMode(ItemPane &pane, PaneLayout &layout, MainActions &actions);

    bool isOn() const { return m_isOn; }

public slots:
    void onTwoScreenModeToggled(bool on);
    /// Screens have come or gone.
    void onEnableTwoScreenMode();

private:
    static QScreen *otherScreen(const QWidget &window);

    ItemPane &m_pane;
    PaneLayout &m_layout;
    MainActions &m_actions;
    bool m_isOn = false;
};
