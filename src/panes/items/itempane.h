#pragma once

#include <QPointer>
#include <QWidget>

class GraphScene;
class ItemWidget;
class Node;
class QLabel;
class QStackedLayout;

/// The right pane: the panel of the one item that is selected on the canvas.
class ItemPane : public QWidget
{
    Q_OBJECT

public:
    explicit ItemPane(QWidget *parent = nullptr);
    ~ItemPane() override;

    ItemWidget *itemWidget() const { return m_itemWidget; }
    /// Shows the item that is selected in the scene; a hint when there are none or several.
    void showSelection(const GraphScene &scene);
    /// Takes what is being typed into the item, and drops its panel.
    void letGo();
    /// Shows the item anew if it is this one.
    void refresh(Node *node);
    /// The same for whatever is shown.
    void refresh();
    /// Off during a run: nothing can be changed, and the table is let go of.
    void setInteraction(bool allow);
    /// Goes into the note that is shown.
    void onTypedCharInNote(QChar c);

signals:
    void nodeCommentChanged(Node *node);
    /// The pane was closed while it stood in a window of its own.
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void showNode(Node *node);

    QStackedLayout *m_layout;
    QLabel *m_hint;
    ItemWidget *m_itemWidget = nullptr;
};
