#pragma once

#include <QPointer>
#include <QWidget>

class Node;

/// The panel of one item.
class ItemWidget : public QWidget
{
    Q_OBJECT

public:
    explicit ItemWidget(Node &node, QWidget *parent = nullptr);
    ~ItemWidget() override;

    /// Null once the item is gone.
    Node *node() const;
    /// Shows what the item is now.
    virtual void refresh() = 0;
    /// Lets go of the table, so that a run needn't keep the old one; refresh() takes the new one.
    virtual void letGoOfData() {}
    /// Takes into the item what is still being typed.
    virtual void apply() = 0;
    /// A character typed on the canvas, for kinds that take texts.
    virtual void typeText(QChar) {}

signals:
    void nodeCommentChanged(Node *node);

protected:
    /// One step of undo, unless the item has this comment already.
    void setNodeComment(const QString &text);

private:
    const QPointer<Node> m_node;
};
