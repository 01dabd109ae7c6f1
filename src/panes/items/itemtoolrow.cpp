#include "panes/items/itemtoolrow.h"

#include "graph/node.h"
#include "panes/icons.h"
#include "panes/widgets/elidedlabel.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>

ItemToolRow::ItemToolRow(QWidget *parent)
    : QWidget(parent)
    , m_buttons(new QHBoxLayout)
    , m_name(new ElidedLabel)
    , m_state(new ElidedLabel)
{
    QFont bold = font();
    bold.setBold(true);
    m_name->setFont(bold);
    for (ElidedLabel *label : {m_name, m_state}) {
        // A long name is cut rather than making the pane wider; the whole of it is in the tip.
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    m_buttons->setSpacing(0);
    m_buttons->addWidget(m_name, 1);
    layout->addLayout(m_buttons);
    layout->addWidget(m_state);
    m_run = addButton(QStringLiteral("media-playback-start"), QStringLiteral("Run"),
        QStringLiteral("Run this item, and what it needs, now."), QString());
    connect(m_run, &QToolButton::clicked, this, &ItemToolRow::runClicked);
    auto *group = new QButtonGroup(this);
    addShowButton(PanelState::OptionsAndData, QStringLiteral("view-options-and-data"),
        QStringLiteral("Show options and data"), QStringLiteral("Show options and data. (%1)"), QStringLiteral("F6"));
    addShowButton(PanelState::OnlyOptions, QStringLiteral("configure"), QStringLiteral("Show only options"),
        QStringLiteral("Show only options. (%1)"), QStringLiteral("F7"));
    addShowButton(PanelState::OnlyData, QStringLiteral("table"), QStringLiteral("Show only data"),
        QStringLiteral("Show only data. (%1)"), QStringLiteral("F8"));
    for (QToolButton *button : m_show) {
        group->addButton(button);
    }
    m_fullscreen = addButton(QStringLiteral("fullscreen"), QStringLiteral("Toggle fullscreen"),
        QStringLiteral("Toggle fullscreen on/off. (%1)\n'Esc' key also cancels fullscreen."), QStringLiteral("F11"));
    m_fullscreen->setCheckable(true);
    connect(m_fullscreen, &QToolButton::clicked, this, &ItemToolRow::fullscreenClicked);
    QToolButton *help = addButton(
        QStringLiteral("help-contents"), QStringLiteral("Help"), QStringLiteral("Click for more details."), QString());
    help->setObjectName(QStringLiteral("m_helpButton"));
    connect(help, &QToolButton::clicked, this, &ItemToolRow::helpClicked);
}

QToolButton *ItemToolRow::addButton(const QString &icon, const QString &name, const QString &tip, const QString &keys)
{
    auto *button = new QToolButton;
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(Icons::icon(icon));
    button->setAccessibleName(name);
    button->setToolTip(keys.isEmpty() ? tip : tip.arg(keys));
    if (!keys.isEmpty()) {
        // A key of the button itself would act only after the button has been shown pressed for a tenth of a second.
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, button, &QToolButton::click);
    }
    m_buttons->addWidget(button);
    return button;
}

void ItemToolRow::addShowButton(
    PanelState::Show show, const QString &icon, const QString &name, const QString &tip, const QString &keys)
{
    QToolButton *button = addButton(icon, name, tip, keys);
    button->setCheckable(true);
    m_show[static_cast<size_t>(show)] = button;
    connect(button, &QToolButton::clicked, this, [this, show] { emit showChosen(show); });
}

void ItemToolRow::setShow(PanelState::Show show)
{
    m_show[static_cast<size_t>(show)]->setChecked(true);
}

void ItemToolRow::showNode(const Node &node)
{
    m_name->setText(node.name());
    m_name->setToolTip(node.description());
    QStringList state{node.kindName(), node.displaySizeText(), node.stateText(), node.resultText()};
    state.removeAll(QString());
    m_state->setWholeText(state.join(QStringLiteral(", ")));
}
