#include "app/batch/batchheader.h"

#include <QPainter>

namespace {

constexpr int margin = 6;

} // namespace

BatchHeader::BatchHeader(QWidget *parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setSectionsClickable(false);
}

// Styles have colours of their own for headers.
void BatchHeader::paintSection(QPainter *painter, const QRect &rect, int section) const
{
    const QVariant background = model()->headerData(section, orientation(), Qt::BackgroundRole);
    if (!background.isValid()) {
        QHeaderView::paintSection(painter, rect, section);
        return;
    }
    const QString text = model()->headerData(section, orientation(), Qt::DisplayRole).toString();
    const QRect inner = rect.adjusted(margin, 0, -margin, 0);
    painter->save();
    painter->fillRect(rect.adjusted(0, 0, -1, 0), background.value<QColor>());
    painter->setPen(model()->headerData(section, orientation(), Qt::ForegroundRole).value<QColor>());
    painter->drawText(
        inner, int(defaultAlignment()), painter->fontMetrics().elidedText(text, Qt::ElideRight, inner.width()));
    painter->restore();
}
