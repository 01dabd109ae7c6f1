#include "panes/actions/transformbutton.h"

#include "graph/pictures.h"
#include "panes/icons.h"
#include "transforms/frame/transform.h"

TransformButton::TransformButton(Transform &prototype, QWidget *parent)
    : QToolButton(parent)
    , m_prototype(prototype)
{
    setText(prototype.displayName());
    updateIcon();
    setIconSize(QSize(24, 24));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(prototype.displayName());
    setAccessibleDescription(prototype.description());
    setHiddenOtherwise(false, QString());
}

void TransformButton::updateIcon()
{
    setIcon(Pictures::icon(Pictures::ofTransform(m_prototype.typeName()), Icons::areDark()));
}

void TransformButton::setHiddenOtherwise(bool hidden, const QString &checkText)
{
    QStringList lines{m_prototype.description().toHtmlEscaped(), m_prototype.imageHtml(),
        m_prototype.inputsHelpText().toHtmlEscaped()};
    if (hidden) {
        lines.append(QStringLiteral("\nCheck '%1' (above) to see all transforms.").arg(checkText));
    }
    lines.removeAll(QString());
    setToolTip(lines.join(QStringLiteral("<br>")).replace(QLatin1Char('\n'), QLatin1String("<br>")));
}

void TransformButton::enterEvent(QEvent *event)
{
    QToolButton::enterEvent(event);
    emit hoverStatusChange(true);
}

void TransformButton::leaveEvent(QEvent *event)
{
    QToolButton::leaveEvent(event);
    emit hoverStatusChange(false);
}
