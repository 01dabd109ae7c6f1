#include "panes/explore/diffsoverview.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int widthInChars = 3;
constexpr int leastMark = 2; ///< a single row among millions is still seen
constexpr int leastWindow = 4;
constexpr double windowStrength = 0.25;

} // namespace

DiffsOverview::DiffsOverview(QWidget *parent)
    : QLabel(parent)
{
    setAccessibleName(QStringLiteral("Overview of differences"));
    setToolTip(QStringLiteral("Where the differences lie among all rows.\nClick or drag to see the rows there."));
    setFrameShape(QFrame::StyledPanel);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

QSize DiffsOverview::sizeHint() const
{
    const int width = widthInChars * fontMetrics().averageCharWidth();
    return {width, width};
}

void DiffsOverview::setRows(int rowCount, const QVector<int> &differentRows, const QColor &color)
{
    m_rowCount = rowCount;
    m_differentRows = differentRows;
    m_color = color;
    m_last = qMin(m_last, rowCount - 1);
    findMarks();
}

int DiffsOverview::rowAt(int y) const
{
    const qint64 height = qMax(1, contentsRect().height());
    const qint64 place = qBound<qint64>(0, y - contentsRect().top(), height - 1);
    return m_rowCount == 0 ? -1 : static_cast<int>(place * m_rowCount / height);
}

int DiffsOverview::yOf(int row) const
{
    return contentsRect().top() + static_cast<int>(qint64(row) * contentsRect().height() / qMax(1, m_rowCount));
}

void DiffsOverview::findMarks()
{
    m_marks.fill(false, height() + leastMark);
    for (const int row : qAsConst(m_differentRows)) {
        const int end = qMax(yOf(row) + leastMark, yOf(row + 1));
        for (int y = yOf(row); y < end && y < m_marks.size(); ++y) {
            m_marks[y] = true;
        }
    }
    update();
}

void DiffsOverview::onViewScrolled(int first, int last)
{
    if (first != m_first || last != m_last) {
        m_first = first;
        m_last = last;
        update();
    }
}

void DiffsOverview::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    QPainter painter(this);
    const QRect inside = contentsRect();
    painter.setClipRect(inside);
    painter.fillRect(inside, palette().base());
    for (int y = inside.top(); y <= inside.bottom() && y < m_marks.size(); ++y) {
        if (m_marks.at(y)) {
            painter.fillRect(inside.left(), y, inside.width(), 1, m_color);
        }
    }
    if (m_first <= m_last && m_rowCount > 0) {
        QRect window = inside;
        window.setTop(yOf(m_first));
        window.setHeight(qMax(leastWindow, yOf(m_last + 1) - window.top()));
        QColor fill = palette().color(QPalette::Text);
        painter.setPen(fill);
        fill.setAlphaF(windowStrength);
        painter.setBrush(fill);
        painter.drawRect(window.adjusted(0, 0, -1, -1));
    }
}

void DiffsOverview::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    findMarks();
}

void DiffsOverview::mousePressEvent(QMouseEvent *event)
{
    mouseMoveEvent(event);
}

void DiffsOverview::mouseMoveEvent(QMouseEvent *event)
{
    if ((event->buttons() & Qt::LeftButton) && m_rowCount > 0) {
        emit rowChosen(rowAt(event->pos().y()));
    }
}
