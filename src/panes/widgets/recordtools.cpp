#include "panes/widgets/recordtools.h"

#include "panes/icons.h"

#include <QHBoxLayout>
#include <QToolButton>

RecordTools::RecordTools(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->addStretch(1);
}

QToolButton *RecordTools::add(const QString &icon, const QString &name, const QString &tip, const QString &keys)
{
    auto *button = new QToolButton;
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(Icons::icon(icon));
    button->setAccessibleName(name);
    button->setToolTip(keys.isEmpty() ? tip : tip.arg(keys));
    m_layout->insertWidget(m_layout->count() - 1, button);
    return button;
}
