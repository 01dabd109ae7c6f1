#include "panes/widgets/bardelegate.h"

#include <QPainter>

namespace {

constexpr double barOpacity = 0.3;

} // namespace

BarDelegate::BarDelegate(int shareRole, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_role(shareRole)
{
}

void BarDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const double share = index.data(m_role).toDouble();
    if (m_shown && share > 0 && !(option.state & QStyle::State_Selected)) {
        QRectF bar = option.rect;
        bar.setWidth(bar.width() * qMin(1.0, share));
        painter->save();
        painter->setOpacity(barOpacity);
        painter->fillRect(bar, option.palette.color(QPalette::Highlight));
        painter->restore();
    }
    QStyledItemDelegate::paint(painter, option, index);
}
