#pragma once

class QGraphicsView;
class QPainter;
class QPoint;

/// A round lens over a view that shows what is under the cursor larger.
class Magnifier
{
public:
    static constexpr int radius = 110; ///< in pixels of the view
    static constexpr double leastScale = 3.0;

    /// The scale of what the lens shows: at least three times the size of the scene, and twice that of the view.
    static double scaleFor(double viewScale);
    /// Paints the lens round `centre`, a point of the viewport.
    static void paint(QGraphicsView &view, QPainter &painter, const QPoint &centre);
};
