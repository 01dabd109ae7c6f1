#pragma once

#include "graph/undostep.h"

#include <QPointer>
#include <QWidget>

class Node;
struct PanelState;

/// The panel of one item. The signals about the timer are for the pane, which owns the wait between an edit and its
/// run.
class ItemWidget : public QWidget
{
    Q_OBJECT

public:
    explicit ItemWidget(Node &node, QWidget *parent = nullptr);
    ~ItemWidget() override;

    /// Null once the item is gone.
    Node *node() const;
    /// What panels before this one showed, which this one reads and keeps up to date; it must outlive the panel.
    virtual void setPanelState(PanelState &) {}
    /// Shows what the item is now.
    virtual void refresh() = 0;
    /// Lets go of the table, so that a run needn't keep the old one; refresh() takes the new one.
    virtual void letGoOfData() {}
    /// Takes into the item what is still being typed. No run.
    virtual void takeTyped() {}
    /// Runs what is pending, unless a run is on.
    virtual void apply() {}
    /// True while a run would disturb the person: a list is dropped down or a cell is being edited.
    virtual bool isBusy() const { return false; }
    /// Figures of the cells that are selected in its table; empty for none.
    virtual QString selectionText() const { return QString(); }
    /// A character typed on the canvas, for kinds that take texts.
    virtual void typeText(QChar) {}
    /// During a run nothing can be changed.
    virtual void setInteraction(bool allow) { setEnabled(allow); }

public slots:
    virtual void showFullscreen(bool on);
    virtual void onProcessChanges() { apply(); }

signals:
    void fullScreenReleased(ItemWidget *widget);
    void rowsChanged();
    void nodeStatusChanged();
    void nodeCommentChanged(Node *node);
    void closed();
    void warnOverwritingOutputMoreThanOnce();
    void flushTimer();
    void restartTimer();
    void stopTimer();
    void restartTimerIfActive();
    void selectedDataCellsChanged();
    void changeNeedsSave();
    void currentTabChanged(int index);
    void helpRequested(const QString &page);

protected:
    /// What is typed into a line without a pause is one step of undo.
    static UndoStep::Kind kindOfEdit();
    /// One step of undo, unless the item has this comment already.
    void setNodeComment(const QString &text);
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    const QPointer<Node> m_node;
};
