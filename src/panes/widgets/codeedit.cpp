#include "panes/widgets/codeedit.h"

#include <QFontDatabase>
#include <QHelpEvent>
#include <QPainter>
#include <QTextBlock>
#include <QToolTip>

namespace {

constexpr int tabCharacters = 4;
constexpr int leastDigits = 2;
constexpr int marginPadding = 4;
const QColor errorColor(0xfc, 0x33, 0x00, 0x50);

class Margin : public QWidget
{
public:
    explicit Margin(CodeEdit *edit)
        : QWidget(edit)
        , m_edit(*edit)
    {
    }
    QSize sizeHint() const override { return {m_edit.marginWidth(), 0}; }

protected:
    void paintEvent(QPaintEvent *event) override { m_edit.paintMargin(event); }

private:
    CodeEdit &m_edit;
};

} // namespace

CodeEdit::CodeEdit(QWidget *parent)
    : QPlainTextEdit(parent)
    , m_margin(new Margin(this))
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setTabStopDistance(tabCharacters * fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &CodeEdit::updateMargin);
    connect(this, &QPlainTextEdit::updateRequest, this, [this] { m_margin->update(); });
    updateMargin();
}

int CodeEdit::marginWidth() const
{
    const int digits = qMax(leastDigits, QString::number(blockCount()).size());
    return 2 * marginPadding + digits * fontMetrics().horizontalAdvance(QLatin1Char('9'));
}

void CodeEdit::updateMargin()
{
    setViewportMargins(marginWidth(), 0, 0, 0);
    const QRect contents = contentsRect();
    m_margin->setGeometry(contents.left(), contents.top(), marginWidth(), contents.height());
}

void CodeEdit::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    updateMargin();
}

void CodeEdit::paintMargin(QPaintEvent *event)
{
    QPainter painter(m_margin);
    painter.fillRect(event->rect(), palette().color(QPalette::AlternateBase));
    painter.setFont(font());
    QTextBlock block = firstVisibleBlock();
    double top = blockBoundingGeometry(block).translated(contentOffset()).top();
    while (block.isValid() && top <= event->rect().bottom()) {
        const double height = blockBoundingRect(block).height();
        const bool wrong = block.blockNumber() + 1 == m_errorLine;
        if (wrong) {
            painter.fillRect(QRectF(0, top, m_margin->width(), height), errorColor);
        }
        painter.setPen(palette().color(wrong ? QPalette::Text : QPalette::PlaceholderText));
        painter.drawText(QRectF(0, top, m_margin->width() - marginPadding, height), Qt::AlignRight | Qt::AlignVCenter,
            QString::number(block.blockNumber() + 1));
        top += height;
        block = block.next();
    }
}

void CodeEdit::setErrorLine(int line, const QString &reason)
{
    m_errorLine = line;
    m_reason = reason;
    markLines();
    m_margin->update();
}

void CodeEdit::markLines()
{
    QList<QTextEdit::ExtraSelection> marks;
    const QTextBlock block = document()->findBlockByNumber(m_errorLine - 1);
    if (m_errorLine > 0 && block.isValid()) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(block);
        mark.format.setBackground(errorColor);
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        marks.append(mark);
    }
    setExtraSelections(marks);
}

bool CodeEdit::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && m_errorLine > 0) {
        auto *help = static_cast<QHelpEvent *>(event);
        const QPoint place = viewport()->mapFromGlobal(help->globalPos());
        if (cursorForPosition(place).blockNumber() + 1 == m_errorLine) {
            QToolTip::showText(help->globalPos(), m_reason, this);
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

void CodeEdit::paintEvent(QPaintEvent *event)
{
    QPlainTextEdit::paintEvent(event);
    if (m_paintOverlay) {
        m_paintOverlay(*viewport());
    }
}
