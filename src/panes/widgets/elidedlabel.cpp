#include "panes/widgets/elidedlabel.h"

#include <QPainter>
#include <QStyle>

ElidedLabel::ElidedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::setWholeText(const QString &text)
{
    setText(text);
    setToolTip(text);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect area = contentsRect();
    const QString shown = fontMetrics().elidedText(text().simplified(), Qt::ElideRight, area.width());
    style()->drawItemText(
        &painter, area, static_cast<int>(alignment()), palette(), isEnabled(), shown, foregroundRole());
}
