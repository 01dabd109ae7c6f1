#include "panes/canvas/emptycanvas.h"

#include "graph/colors.h"
#include "graph/graphscene.h"
#include "panes/canvas/graphpane.h"

#include <QMenu>
#include <QPainter>
#include <QPushButton>

namespace {

constexpr int gap = 16;

QString words()
{
    return QStringLiteral("ADD YOUR DATA\ndrag files here; or\nclick [%1] or [%2] buttons")
        .arg(QStringLiteral("From File"), QStringLiteral("From Clipboard"));
}

QFont largeFont(const GraphPane &pane)
{
    QFont font = pane.font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    return font;
}

} // namespace

void EmptyCanvas::setExamples(QMenu &menu)
{
    m_examples = new QPushButton(QStringLiteral("Open an example"), &m_pane);
    m_examples->setObjectName(QStringLiteral("m_openExampleButton"));
    m_examples->setToolTip(QStringLiteral("Open a flow that comes with the program, as a copy of your own."));
    m_examples->setMenu(&menu);
    QWidget::setTabOrder(&m_pane, m_examples);
    // The view's own cursor is a cross while items are connected.
    m_examples->setCursor(Qt::ArrowCursor);
    update();
}

QRect EmptyCanvas::textPlace() const
{
    const QRect room = m_pane.viewport()->geometry();
    return QFontMetrics(largeFont(m_pane)).boundingRect(room, Qt::AlignCenter, words());
}

void EmptyCanvas::update()
{
    if (!m_examples) {
        return;
    }
    const bool isEmpty = m_pane.graph() && m_pane.graph()->nodes().isEmpty();
    if (isEmpty) {
        const QSize size = m_examples->sizeHint();
        const QRect text = textPlace();
        m_examples->setGeometry(QRect(QPoint(text.center().x() - size.width() / 2, text.bottom() + gap), size));
    } else if (m_examples->hasFocus()) {
        m_pane.setFocus();
    }
    m_examples->setVisible(isEmpty);
}

QObject *EmptyCanvas::shownButton() const
{
    return m_examples && !m_examples->isHidden() ? m_examples : nullptr;
}

void EmptyCanvas::paint(QPainter &painter) const
{
    painter.save();
    painter.resetTransform();
    painter.setFont(largeFont(m_pane));
    painter.setPen(m_pane.graph()->colors().color(Colors::Arrow));
    painter.drawText(m_pane.viewport()->rect(), Qt::AlignCenter, words());
    painter.restore();
}
