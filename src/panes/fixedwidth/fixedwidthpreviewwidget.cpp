#include "panes/fixedwidth/fixedwidthpreviewwidget.h"

#include "inputs/columnwidths.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

namespace {

constexpr int margin = 4;
constexpr double shadeOfEverySecond = 0.05;
constexpr double shadeOfSelected = 0.35;

/// Characters that take more or less room than one would shift what follows them.
QString visible(QString text)
{
    for (QChar &c : text) {
        if (c == '\t' || !c.isPrint()) {
            c = QLatin1Char(' ');
        }
    }
    return text;
}

} // namespace

FixedWidthPreviewWidget::FixedWidthPreviewWidget(QWidget *parent)
    : QAbstractScrollArea(parent)
{
    QFont fixed(QStringLiteral("Courier New"), font().pointSize());
    fixed.setStyleHint(QFont::Monospace);
    fixed.setFixedPitch(true);
    viewport()->setFont(fixed);
    viewport()->setBackgroundRole(QPalette::Base);
    m_characterWidth = QFontMetricsF(fixed).horizontalAdvance(QLatin1Char('0'));
    setAccessibleName(QStringLiteral("Preview"));
}

void FixedWidthPreviewWidget::setLines(const QStringList &lines)
{
    m_lines.clear();
    m_longest = 0;
    for (const QString &line : lines) {
        m_lines.append(visible(line));
        m_longest = qMax(m_longest, line.size());
    }
    updateScrollBars();
    viewport()->update();
}

void FixedWidthPreviewWidget::setWidths(const QList<int> &widths)
{
    m_widths = widths;
    updateScrollBars();
    viewport()->update();
}

void FixedWidthPreviewWidget::setSelected(const QList<int> &columns)
{
    m_selected = QSet<int>(columns.begin(), columns.end());
    viewport()->update();
}

double FixedWidthPreviewWidget::left(int position) const
{
    return margin + position * m_characterWidth - horizontalScrollBar()->value();
}

void FixedWidthPreviewWidget::showColumn(int column)
{
    const int start = qRound(ColumnWidths::starts(m_widths).at(column) * m_characterWidth);
    QScrollBar &bar = *horizontalScrollBar();
    if (start < bar.value() || start > bar.value() + viewport()->width() - 2 * margin) {
        bar.setValue(start - viewport()->width() / 4);
    }
}

void FixedWidthPreviewWidget::updateScrollBars()
{
    const int characters = qMax(m_longest, ColumnWidths::starts(m_widths).last());
    const int lineHeight = viewport()->fontMetrics().lineSpacing();
    const QSize room = viewport()->size();
    const QSize whole(
        qRound(qMin(characters * m_characterWidth, 1e8)) + 2 * margin, m_lines.size() * lineHeight + 2 * margin);
    horizontalScrollBar()->setRange(0, qMax(0, whole.width() - room.width()));
    horizontalScrollBar()->setPageStep(room.width());
    horizontalScrollBar()->setSingleStep(qRound(m_characterWidth));
    verticalScrollBar()->setRange(0, qMax(0, whole.height() - room.height()));
    verticalScrollBar()->setPageStep(room.height());
    verticalScrollBar()->setSingleStep(lineHeight);
}

void FixedWidthPreviewWidget::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

void FixedWidthPreviewWidget::drawColumn(
    QPainter &painter, const QList<int> &starts, int column, const QRect &dirty) const
{
    const bool isColumn = column < m_widths.size();
    const int width = isColumn ? m_widths.at(column) : qMax(0, m_longest - starts.at(column));
    const QRectF area(left(starts.at(column)), 0, width * m_characterWidth, viewport()->height());
    if (area.right() < dirty.left() || area.left() > dirty.right()) {
        return;
    }
    QColor shade = m_selected.contains(column) ? palette().color(QPalette::Highlight) : palette().color(QPalette::Text);
    shade.setAlphaF(m_selected.contains(column) ? shadeOfSelected : column % 2 == 1 ? shadeOfEverySecond : 0);
    painter.fillRect(area, isColumn ? shade : Qt::transparent);
    painter.setClipRect(area);
    // What is beyond the last column is lost, and shown so.
    painter.setPen(palette().color(isColumn ? QPalette::Active : QPalette::Disabled, QPalette::Text));
    const int lineHeight = painter.fontMetrics().lineSpacing();
    const int shift = margin - verticalScrollBar()->value();
    const int first = qMax(0, (dirty.top() - shift) / lineHeight);
    const int last = qMin(m_lines.size() - 1, (dirty.bottom() - shift) / lineHeight);
    // No more characters than can be seen, since a line may be very long.
    const int hidden = qMax(0, static_cast<int>(-area.left() / m_characterWidth));
    const int shown = static_cast<int>(viewport()->width() / m_characterWidth) + 2;
    for (int line = first; line <= last; ++line) {
        const QString text = m_lines.at(line).mid(starts.at(column) + hidden, qMin(width - hidden, shown));
        painter.drawText(QPointF(area.left() + hidden * m_characterWidth,
                             shift + line * lineHeight + painter.fontMetrics().ascent()),
            text);
    }
    painter.setClipping(false);
    if (isColumn) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawLine(QPointF(area.right(), 0), QPointF(area.right(), viewport()->height()));
    }
}

void FixedWidthPreviewWidget::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.setFont(viewport()->font());
    if (m_lines.isEmpty()) {
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        painter.drawText(viewport()->rect(), Qt::AlignCenter, QStringLiteral("Nothing was read yet"));
        return;
    }
    const QList<int> starts = ColumnWidths::starts(m_widths);
    for (int column = 0; column <= m_widths.size(); ++column) {
        drawColumn(painter, starts, column, event->rect());
    }
}

void FixedWidthPreviewWidget::mousePressEvent(QMouseEvent *event)
{
    const int position = static_cast<int>((event->localPos().x() - left(0)) / m_characterWidth);
    const int column = event->localPos().x() < left(0) ? -1 : ColumnWidths::columnAt(m_widths, position);
    if (event->button() == Qt::LeftButton && column >= 0) {
        emit colClicked(column, event->modifiers().testFlag(Qt::ShiftModifier));
    }
}
