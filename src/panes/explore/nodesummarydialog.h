#pragma once

#include <QDialog>

class Dataset;
class GraphScene;
class Node;
class Prompts;
class QLabel;
class QTableWidget;
class QTableWidgetItem;

/// "Item Summary": a table of all items. It is modal, so that the items stay while it is open.
class NodeSummaryDialog : public QDialog
{
    Q_OBJECT

public:
    NodeSummaryDialog(GraphScene &scene, Prompts &prompts);
    ~NodeSummaryDialog() override;

protected:
    void leaveEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addColumns();
    void addRows();
    void addRow(int row, const Node &node);
    void restoreLook();
    void storeLook() const;
    QString countLine() const;
    /// The table as it is shown, sorted and in the order of its columns.
    Dataset shownTable() const;
    void highlight(Node *node);
    Node *nodeOf(const QTableWidgetItem &item) const;
    void onItemEntered(QTableWidgetItem *item);
    void onItemDoubleClicked(QTableWidgetItem *item);
    void onClickedClipboard();
    void onClickedExport();
    void onShowTip();

    GraphScene &m_scene;
    Prompts &m_prompts;
    QTableWidget *m_table;
    int m_highlighted = -1; ///< id
};
