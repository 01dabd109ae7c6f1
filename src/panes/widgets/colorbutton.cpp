#include "panes/widgets/colorbutton.h"

#include <QColorDialog>
#include <QPainter>

namespace {

constexpr double swatchShape = 1.6; ///< width by height

} // namespace

ColorButton::ColorButton(QWidget *parent)
    : QToolButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    const int height = fontMetrics().ascent();
    setIconSize(QSize(qRound(height * swatchShape), height));
    connect(this, &QToolButton::clicked, this, &ColorButton::choose);
}

void ColorButton::setColor(const QColor &color)
{
    m_color = color;
    QPixmap pixmap(iconSize());
    pixmap.fill(color.isValid() ? color : Qt::transparent);
    if (!color.isValid()) {
        QPainter painter(&pixmap);
        painter.setPen(palette().color(QPalette::ButtonText));
        painter.drawLine(0, pixmap.height() - 1, pixmap.width() - 1, 0);
    }
    setIcon(pixmap);
    setAccessibleDescription(color.isValid() ? color.name() : QStringLiteral("None"));
}

void ColorButton::choose()
{
    const QColor color = QColorDialog::getColor(m_color, this, accessibleName());
    if (color.isValid() && color != m_color) {
        setColor(color);
        emit colorChosen(color);
    }
}
