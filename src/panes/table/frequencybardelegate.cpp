#include "panes/table/frequencybardelegate.h"

#include <QPainter>

void FrequencyBarDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    constexpr double strength = 0.35;
    QRectF bar = QRectF(option.rect).adjusted(1, 1, -1, -1);
    bar.setWidth(bar.width() * qBound(0.0, index.data(shareRole).toDouble(), 1.0));
    QColor color = option.palette.color(QPalette::Highlight);
    color.setAlphaF(strength);
    painter->fillRect(bar, color);
    QStyledItemDelegate::paint(painter, option, index);
}
