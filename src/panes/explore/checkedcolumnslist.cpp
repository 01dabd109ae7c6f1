#include "panes/explore/checkedcolumnslist.h"

#include "panes/widgets/columnslistwidget.h"
#include "panes/widgets/faultmark.h"

#include <QPainter>

CheckedColumnsList::CheckedColumnsList(const Dataset &dataset, QWidget *parent)
    : MultipleColumnsWidget(parent)
    , m_table(dataset)
{
    setSource(&m_table);
    list().setAccessibleName(QStringLiteral("Columns to match"));
    list().setToolTip(QStringLiteral("Rows are duplicates when their values in all the checked columns match."));
    list().setOverlay([this](QWidget &viewport) { paintFrame(viewport); });
    connect(this, &MultipleColumnsWidget::columnsChanged, &list(), [this] { list().viewport()->update(); });
}

void CheckedColumnsList::paintFrame(QWidget &viewport) const
{
    if (checkedColumns().isEmpty()) {
        constexpr int width = 2;
        QPainter painter(&viewport);
        painter.setPen(QPen(QColor::fromRgba(FaultMark::color), width));
        painter.drawRect(viewport.rect().adjusted(1, 1, -1, -1));
    }
}
