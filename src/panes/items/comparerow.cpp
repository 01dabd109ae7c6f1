#include "panes/items/comparerow.h"

#include "panes/icons.h"
#include "panes/table/changefinder.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/widgets/colorbutton.h"
#include "settings/settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

CompareRow::CompareRow(DataTableView &view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
    , m_show(new QCheckBox(QStringLiteral("compare changes")))
    , m_message(new QLabel)
{
    m_show->setToolTip(
        QStringLiteral("Highlight changes made by the transform. Click or hover over cell to see details of "
                       "the change.\nCan be slow for large datasets."));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_show);
    m_previous = addButton(*layout, QStringLiteral("change-previous"), QStringLiteral("Previous change"),
        QStringLiteral("Previous change. Skips changes hidden by data table filtering."));
    m_next = addButton(*layout, QStringLiteral("change-next"), QStringLiteral("Next change"),
        QStringLiteral("Next change. Skips changes hidden by data table filtering."));
    auto *colorLabel = new QLabel(QStringLiteral("Changes color:"));
    auto *color = new ColorButton;
    color->setAccessibleName(colorLabel->text());
    color->setColor(Settings::current().changedDataColor());
    colorLabel->setBuddy(color);
    layout->addWidget(colorLabel);
    layout->addWidget(color);
    layout->addWidget(m_message, 1);
    connect(m_show, &QCheckBox::toggled, this, &CompareRow::showChangesToggled);
    connect(m_previous, &QToolButton::clicked, this, &CompareRow::onPreviousChange);
    connect(m_next, &QToolButton::clicked, this, &CompareRow::onNextChange);
    connect(color, &ColorButton::colorChosen, this, [this](const QColor &chosen) {
        Settings::current().setChangedDataColor(chosen);
        emit colorChanged();
    });
    m_message->setTextFormat(Qt::PlainText);
    connect(&m_view, &DataTableView::changeMessage, m_message, &QLabel::setText);
    updateButtons();
}

QToolButton *CompareRow::addButton(QHBoxLayout &layout, const QString &icon, const QString &name, const QString &tip)
{
    auto *button = new QToolButton;
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(Icons::icon(icon));
    button->setAccessibleName(name);
    button->setToolTip(tip);
    layout.addWidget(button);
    return button;
}

void CompareRow::setShowChanges(bool on)
{
    m_show->setChecked(on);
}

void CompareRow::updateButtons()
{
    const bool on = m_show->isChecked() && m_view.table().rowCount() > 0;
    m_previous->setEnabled(on);
    m_next->setEnabled(on);
    m_message->clear();
}

void CompareRow::goTo(bool forwards)
{
    const QModelIndex present = m_view.currentIndex();
    const TablePlace from = present.isValid() ? TablePlace{present.row(), present.column()} : TablePlace();
    const auto step = forwards ? &ChangeFinder::next : &ChangeFinder::previous;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const TablePlace place = step(m_view.table(), from, m_view.hiddenColumns());
    QApplication::restoreOverrideCursor();
    if (!place.isValid()) {
        m_message->setText(forwards ? QStringLiteral("No more changes") : QStringLiteral("No earlier changes"));
        return;
    }
    m_message->clear();
    const QModelIndex index = m_view.table().index(place.row, place.column);
    m_view.setCurrentIndex(index);
    m_view.scrollTo(index);
}

void CompareRow::onNextChange()
{
    goTo(true);
}

void CompareRow::onPreviousChange()
{
    goTo(false);
}
