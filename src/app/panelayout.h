#pragma once

#include <QObject>

class QAction;
class QSplitter;
class QWidget;
class Settings;

/// The panes of the window side by side, each beside the canvas with an action that shows and hides it.
class PaneLayout : public QObject
{
    Q_OBJECT

public:
    PaneLayout(QWidget *centre, QWidget *right);

    QSplitter *splitter() const { return m_splitter; }
    /// The action is checked while the right pane can be seen.
    void setActions(QAction &itemPaneAction);
    /// Takes the widths from the settings, and gives them back at the end.
    void restore(const Settings &settings);
    void store(Settings &settings) const;
    /// Back to its place, after it stood in a window of its own.
    void takeRightPane();

public slots:
    void onItemPaneVisibilityToggled(bool on);
    /// A person has moved a border: panes without width count as hidden.
    void onHSplitterMoved();

private:
    enum Pane { Centre, Right };
    void setShown(Pane pane, bool on);

    QSplitter *m_splitter;
    QWidget *m_right;
    QAction *m_itemPaneAction = nullptr;
    int m_rightWidth = 300; ///< of the right pane when it is shown
};
