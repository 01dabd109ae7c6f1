#pragma once

#include "panes/items/panelstate.h"

#include <QTimer>
#include <QWidget>

class GraphScene;
class ItemWidget;
class Node;
class Prompts;
class QLabel;
class QStackedLayout;

/// The right pane: the panel of the one item that is selected on the canvas, and the wait between an edit there and the
/// run that it causes.
class ItemPane : public QWidget
{
    Q_OBJECT

public:
    /// `prompts` outlives the pane.
    explicit ItemPane(Prompts &prompts, QWidget *parent = nullptr);
    ~ItemPane() override;

    ItemWidget *itemWidget() const { return m_itemWidget; }
    /// Figures of the cells that are selected in the table that is shown; empty for none.
    QString selectionText() const;
    /// Shows the item that is selected in the scene; a hint when there are none or several.
    void showSelection(const GraphScene &scene);
    /// Takes what is being typed into the item, and drops its panel. What waits to be run isn't: whoever takes the item
    /// away, undoes or closes runs what there is then.
    void letGo();
    /// Shows the item anew if it is this one.
    void refresh(Node *node);
    /// The same for whatever is shown.
    void refresh();
    /// Off during a run: nothing can be changed, and the table is let go of.
    void setInteraction(bool allow);
    /// Goes into the note that is shown.
    void onTypedCharInNote(QChar c);
    /// Shows the panel over the whole screen.
    void showFullscreen();

public slots:
    void onFullScreenReleased(ItemWidget *widget);
    void onWarnOverwritingOutputMoreThanOnce();
    void onProcessChanges();
    void onFlushTimer();
    void onRestartTimer();
    void onStopTimer();
    void onRestartTimerIfActive();
    void onItemCurrentTabChanged(int index);

signals:
    void nodeStatusChanged();
    void nodeCommentChanged(Node *node);
    /// The pane was closed while it stood in a window of its own.
    void closed();
    void selectedDataCellsChanged();
    void changeNeedsSave();
    void helpRequested(const QString &page);
    /// The item's output is written by another item too, which the log says.
    void overwritingOutputMoreThanOnce();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void showNode(Node *node);
    void connectPanel();

    QStackedLayout *m_layout;
    QLabel *m_hint;
    ItemWidget *m_itemWidget = nullptr;
    QTimer m_optionTimer;
    bool m_runPending = false;
    PanelState m_panelState;
};
