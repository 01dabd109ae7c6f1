#pragma once

#include "graph/graphenums.h"

#include <QGraphicsObject>

class Colors;
class GraphScene;

/// The box of a node on the canvas: its place, its measures and its colours. Positions are those of the top left
/// corner.
class NodeBox : public QGraphicsObject
{
public:
    static constexpr double boxWidth = 180.0;
    static constexpr double boxHeight = 90.0;

    /// Null while in none.
    GraphScene *graphScene() const;
    QPointF centre() const;
    void setCentre(const QPointF &point);
    QRectF boxRect() const { return QRectF(0, 0, boxWidth, boxHeight); }
    QPainterPath shape() const override;
    /// Where a connection touches the box; `offset` runs from 0 at the top to 1 at the bottom.
    QPointF connectionPoint(Direction side, double offset) const;

    /// The colours of the scene, or of the program while in none.
    const Colors &colors() const;
    virtual QColor borderColor() const = 0;
    virtual QColor boxColor() const = 0;
    virtual QColor textColor() const = 0;
    int gradientEffect() const;
    /// Name of the picture on the box, empty for none.
    virtual QString imageName() const { return QString(); }
};
