#include "panes/widgets/colorbutton.h"

#include <QColorDialog>

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
    pixmap.fill(color);
    setIcon(pixmap);
    setAccessibleDescription(color.name());
}

void ColorButton::choose()
{
    const QColor color = QColorDialog::getColor(m_color, this, accessibleName());
    if (color.isValid() && color != m_color) {
        setColor(color);
        emit colorChosen(color);
    }
}
