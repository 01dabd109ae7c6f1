#pragma once

#include <QGraphicsDropShadowEffect>

/// The soft shadow under a node's box. It is the same picture under every box, so it is drawn once for each colour; the
/// effect of Qt blurs each box anew, which takes most of the time in which a large graph is painted.
class BoxShadow : public QGraphicsDropShadowEffect
{
    Q_OBJECT

public:
    explicit BoxShadow(QObject *parent);

protected:
    void draw(QPainter *painter) override;
};
