#pragma once

#include "panes/items/panelstate.h"

#include <QToolButton>
#include <QWidget>
#include <array>

class Node;
class QHBoxLayout;
class ElidedLabel;

/// The row at the top of a panel: what the item is, a run button, what the panel shows, full screen and help.
class ItemToolRow : public QWidget
{
    Q_OBJECT

public:
    explicit ItemToolRow(QWidget *parent = nullptr);

    /// Name, kind, size and state of the item.
    void showNode(const Node &node);
    void setShow(PanelState::Show show);
    QToolButton &runButton() { return *m_run; }
    QToolButton &fullscreenButton() { return *m_fullscreen; }

signals:
    void runClicked();
    void showChosen(PanelState::Show show);
    void fullscreenClicked(bool on);
    void helpClicked();

private:
    QToolButton *addButton(const QString &icon, const QString &name, const QString &tip, const QString &keys);
    void addShowButton(
        PanelState::Show show, const QString &icon, const QString &name, const QString &tip, const QString &keys);

    QHBoxLayout *m_buttons;
    ElidedLabel *m_name;
    ElidedLabel *m_state;
    QToolButton *m_run;
    QToolButton *m_fullscreen;
    std::array<QToolButton *, 3> m_show{};
};
