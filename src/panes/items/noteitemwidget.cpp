#include "panes/items/noteitemwidget.h"

#include "graph/notenode.h"
#include "graph/undostep.h"

#include <QColorDialog>
#include <QComboBox>
#include <QFormLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

constexpr int pauseMs = 500;
constexpr QSize swatch(32, 16);

} // namespace

NoteItemWidget::NoteItemWidget(NoteNode &item, QWidget *parent)
    : ItemWidget(item, parent)
    , m_text(new QPlainTextEdit(item.comment()))
    , m_arrow(new QComboBox)
    , m_color(new QPushButton)
{
    m_text->setPlaceholderText(QStringLiteral("Add a useful comment for a colleague or your future self."));
    m_text->setToolTip(m_text->placeholderText());
    m_text->setAccessibleName(QStringLiteral("Comment"));
    m_text->setTabChangesFocus(true);
    m_arrow->addItems({QStringLiteral("None"), QStringLiteral("Up"), QStringLiteral("Right"), QStringLiteral("Down"),
        QStringLiteral("Left")});
    m_arrow->setToolTip(QStringLiteral("Set arrow status and direction."));
    m_color->setToolTip(QStringLiteral("Set background color. Set the text and border color in 'Preferences>Colors'."));
    m_color->setAccessibleName(QStringLiteral("Color"));
    m_color->setIconSize(swatch);
    auto *form = new QFormLayout(this);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->addRow(m_text);
    form->addRow(QStringLiteral("&Arrow:"), m_arrow);
    form->addRow(QStringLiteral("&Color:"), m_color);
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
    connect(m_text, &QPlainTextEdit::textChanged, &m_pause, QOverload<>::of(&QTimer::start));
    connect(&m_pause, &QTimer::timeout, this, &NoteItemWidget::takeTyped);
    connect(m_arrow, QOverload<int>::of(&QComboBox::activated), this, &NoteItemWidget::setArrow);
    connect(m_color, &QPushButton::clicked, this, &NoteItemWidget::chooseColor);
}

NoteNode *NoteItemWidget::note() const
{
    return static_cast<NoteNode *>(node());
}

void NoteItemWidget::refresh()
{
    if (note()) {
        m_arrow->setCurrentIndex(note()->arrow());
        showColor();
    }
}

void NoteItemWidget::showColor()
{
    QPixmap pixmap(swatch);
    pixmap.fill(note()->color());
    m_color->setIcon(pixmap);
    m_color->setText(note()->color().name());
}

void NoteItemWidget::takeTyped()
{
    m_pause.stop();
    setNodeComment(m_text->toPlainText());
}

void NoteItemWidget::typeText(QChar c)
{
    m_text->setFocus();
    m_text->moveCursor(QTextCursor::End);
    m_text->insertPlainText(c);
}

void NoteItemWidget::setArrow(int arrow)
{
    if (note() && arrow != note()->arrow()) {
        const UndoStep step(*note(), QStringLiteral("comment changed"));
        note()->setArrow(static_cast<NoteArrow::Arrow>(arrow));
        emit nodeCommentChanged(note());
    }
}

void NoteItemWidget::chooseColor()
{
    const QColor color = note() ? QColorDialog::getColor(note()->color(), this) : QColor();
    if (color.isValid() && note() && color != note()->color()) {
        const UndoStep step(*note(), QStringLiteral("comment changed"));
        note()->setColor(color);
        emit nodeCommentChanged(note());
        showColor();
    }
}
