#pragma once

#include "graph/node.h"

#include <QColor>

/// A comment on the canvas, with an arrow towards what it is about. It takes no part in runs.
class NoteNode final : public Node, public NoteArrow
{
    Q_OBJECT

public:
    enum { Type = ItemType::Note };
    explicit NoteNode(Arrow arrow = NoArrow, int id = -1);

    int type() const override { return Type; }
    Arrow arrow() const { return m_arrow; }
    void setArrow(Arrow arrow);
    /// The background; white for a new note.
    const QColor &color() const { return m_color; }
    void setColor(const QColor &color);

    QString name() const override;
    QString description() const override;
    QString helpPage() const override;
    QString resultText() const override { return QString(); }
    NodeState state() const override { return NodeState::Processed; }
    NodeStatusIcon statusIcon() const override { return NodeStatusIcon::None; }
    int maxInputs() const override { return 0; }
    int maxOutputs() const override { return 0; }
    bool canProcess() const override { return false; }
    bool acceptsDrops() const override { return false; }
    QString toolTipHtml(bool detail) const override;
    InfoRows kindRows() const override { return {}; }
    InfoRows optionRows() const override { return {}; }
    QVariantList summaryRow() const override;
    QColor borderColor() const override;
    QColor boxColor() const override { return m_color; }
    QColor textColor() const override;
    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    bool produce() override { return true; }
    Node *cloneKind() const override;

    Arrow m_arrow;
    QColor m_color = Qt::white;
};
