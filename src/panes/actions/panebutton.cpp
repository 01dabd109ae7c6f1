#include "panes/actions/panebutton.h"

#include "panes/dialogs/helphook.h"

#include <QKeyEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace {

constexpr int iconSide = 24;

} // namespace

PaneButton::PaneButton(const QString &text, const QString &helpPage, QWidget *parent)
    : QToolButton(parent)
    , m_helpPage(helpPage)
{
    HelpHook::setHelpPage(*this, helpPage);
    setText(text);
    setAccessibleName(text);
    setIconSize(QSize(iconSide, iconSide));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus);
}

int PaneButton::textWidth() const
{
    return fontMetrics().size(Qt::TextShowMnemonic, text()).width();
}

QSize PaneButton::minimumSizeHint() const
{
    const QSize full = sizeHint();
    return {full.width() - textWidth(), full.height()};
}

void PaneButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QToolButton::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
        click();
    }
}

void PaneButton::mouseDoubleClickEvent(QMouseEvent *event)
{
    // The first press of the two has been acted upon.
    event->accept();
}

void PaneButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const int room = width() - minimumSizeHint().width();
    if (room < textWidth()) {
        option.text = fontMetrics().elidedText(option.text, Qt::ElideRight, qMax(0, room));
    }
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
}
