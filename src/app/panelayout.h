#pragma once

#include <QObject>

class QAction;
class QSplitter;
class QWidget;
class Settings;

/// The panes of the window side by side; those beside the canvas have an action each that shows and hides them.
class PaneLayout : public QObject
{
    Q_OBJECT

public:
    /// The log lies below the canvas.
    PaneLayout(QWidget *left, QWidget *canvas, QWidget *log, QWidget *right);

    QSplitter *splitter() const { return m_splitter; }
    /// The actions are checked while their panes can be seen.
    void setActions(QAction &actionPaneAction, QAction &itemPaneAction);
    /// Takes the widths from the settings, and gives them back at the end.
    void restore(const Settings &settings);
    void store(Settings &settings) const;
    /// Back to its place, after it stood in a window of its own.
    void takeRightPane();

public slots:
    void onActionPaneVisibilityToggled(bool on) { setShown(Left, on); }
    void onItemPaneVisibilityToggled(bool on) { setShown(Right, on); }
    /// A person has moved a border: panes without width count as hidden.
    void onHSplitterMoved();

private:
    enum Pane { Left, Centre, Right, PaneCount };
    void setShown(Pane pane, bool on);

    QSplitter *m_splitter;
    QWidget *m_right;
    QAction *m_actions[PaneCount] = {};
    int m_widths[PaneCount] = {}; ///< of the panes when they are shown
};
