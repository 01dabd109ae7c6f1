#include "panes/actions/transformbutton.h"

#include "graph/pictures.h"
#include "panes/icons.h"
#include "transforms/frame/transform.h"

#include <QKeySequence>

TransformButton::TransformButton(Transform &prototype, QWidget *parent)
    : PaneButton(prototype.displayName(), prototype.typeName(), parent)
    , m_prototype(prototype)
{
    updateIcon();
    setAutoRaise(true);
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
        m_prototype.inputsHelpText().toHtmlEscaped(),
        QStringLiteral("Press %1 for help.").arg(QKeySequence(Qt::Key_F1).toString(QKeySequence::NativeText))};
    if (hidden) {
        lines.append(QStringLiteral("\nCheck '%1' (above) to see all transforms.").arg(checkText));
    }
    lines.removeAll(QString());
    setToolTip(lines.join(QStringLiteral("<br>")).replace(QLatin1Char('\n'), QLatin1String("<br>")));
}

void TransformButton::enterEvent(QEvent *event)
{
    PaneButton::enterEvent(event);
    emit hoverStatusChange(true);
}

void TransformButton::leaveEvent(QEvent *event)
{
    PaneButton::leaveEvent(event);
    emit hoverStatusChange(false);
}
