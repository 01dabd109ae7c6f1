#include "panes/items/datapage.h"

#include "panes/icons.h"
#include "panes/items/datafilterrow.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

DataPage::DataPage(QWidget *parent)
    : QWidget(parent)
    , m_tools(new QToolBar)
    , m_layout(new QVBoxLayout(this))
    , m_view(new DataTableView)
{
    m_filter = new DataFilterRow(*m_view);
    m_filter->hide();
    m_layout->setContentsMargins(2, 2, 2, 2);
    m_layout->setSpacing(2);
    // Buttons that have no room are behind an arrow.
    m_tools->setIconSize(QSize(fontMetrics().height(), fontMetrics().height()));
    m_layout->addWidget(m_tools);
    m_layout->addWidget(m_filter);
    m_layout->addWidget(m_view, 1);
    addDataButtons();
    addSeparator();
    addScrollButtons();
    addSeparator();
    m_whitespace = addButton(QStringLiteral("show-whitespace"), QStringLiteral("Show whitespace"),
        QStringLiteral("Show whitespace, such as Spaces and Tabs, as visible marks."));
    m_whitespace->setCheckable(true);
    connect(m_whitespace, &QToolButton::toggled, this, &DataPage::onClickedShowWhitespace);
    m_filterButton = addButton(QStringLiteral("view-filter"), QStringLiteral("Filter"),
        QStringLiteral("Filter the data table. (Ctrl+Shift+F)"));
    m_filterButton->setCheckable(true);
    m_filterButton->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_F));
    connect(m_filterButton, &QToolButton::toggled, this, &DataPage::onToggledDataFilterButton);
    connect(m_filter, &DataFilterRow::escaped, this, [this] {
        m_filterButton->setChecked(false);
        m_view->setFocus();
    });
    m_view->setHint(DataTableView::Hint::Pane);
    connect(this, &DataPage::rowValuesClicked, m_view, &DataTableView::onShowRowData);
    connect(this, &DataPage::columnValuesClicked, m_view, &DataTableView::onShowColData);
    connect(m_view, &DataTableView::filterRowColContains, this, &DataPage::onFilterRowColContains);
    for (QScrollBar *bar : {m_view->horizontalScrollBar(), m_view->verticalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, &DataPage::onUpdateDataScrollButtons);
        connect(bar, &QScrollBar::rangeChanged, this, &DataPage::onUpdateDataScrollButtons);
    }
    updateButtons();
}

QToolButton *DataPage::addButton(const QString &icon, const QString &name, const QString &tip)
{
    auto *button = new QToolButton;
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(Icons::icon(icon));
    button->setAccessibleName(name);
    button->setToolTip(tip);
    m_tools->addWidget(button);
    return button;
}

void DataPage::addSeparator()
{
    m_tools->addSeparator();
}

void DataPage::addDataButtons()
{
    struct Row
    {
        const char *icon;
        const char *name;
        const char *tip;
        void (DataPage::*clicked)();
    };
    const Row rows[] = {
        {"edit-copy", "Copy",
            "Copy the dataset to the clipboard.\nNot affected by filtering of the data table.\nChoose whether to copy "
            "to "
            "text/plain as Comma or Tab separated in 'Preferences'.",
            &DataPage::copyClicked},
        {"row-values", "Row values",
            "Show row values in the selected row (or row 1, if no row selected).\nYou can also double click the row "
            "header.\nNot affected by filtering of the data table.",
            &DataPage::rowValuesClicked},
        {"column-values", "Column values",
            "Show column values in the selected column (or column 1, if no column selected).\nYou can also double "
            "click "
            "the column header.\nNot affected by filtering of the data table.",
            &DataPage::columnValuesClicked},
        {"document-edit", "Edit",
            "Open the whole dataset as a temporary .csv file in a local editor.\nChanges made in the editor will not "
            "change the dataset in Quillmere.\nNot affected by filtering of the data table.",
            &DataPage::editClicked},
        {"document-export", "Export", "Export the dataset to a file.\nNot affected by filtering of the data table.",
            &DataPage::exportClicked},
    };
    for (const Row &row : rows) {
        QToolButton *button = addButton(QLatin1String(row.icon), QLatin1String(row.name), QLatin1String(row.tip));
        connect(button, &QToolButton::clicked, this, row.clicked);
        m_needTable.append(button);
    }
}

void DataPage::addScrollButtons()
{
    struct Row
    {
        const char *icon;
        const char *way;
        void (DataPage::*scroll)();
    };
    const Row rows[] = {
        {"go-first", "all the way left", &DataPage::onScrollXLeft},
        {"go-previous", "left", &DataPage::onScrollLeft},
        {"go-next", "right", &DataPage::onScrollRight},
        {"go-last", "all the way right", &DataPage::onScrollXRight},
        {"go-top", "to the top", &DataPage::onScrollTop},
        {"go-up", "up", &DataPage::onScrollUp},
        {"go-down", "down", &DataPage::onScrollDown},
        {"go-bottom", "to the bottom", &DataPage::onScrollBottom},
    };
    for (const Row &row : rows) {
        const QString name = QStringLiteral("Scroll data %1").arg(QLatin1String(row.way));
        QToolButton *button = addButton(QLatin1String(row.icon), name, name + QLatin1Char('.'));
        button->setAutoRepeat(true);
        connect(button, &QToolButton::clicked, this, row.scroll);
        m_scroll.append(button);
    }
}

void DataPage::setPanelState(PanelState &state)
{
    m_state = &state;
    if (state.prompts) {
        m_view->setPrompts(*state.prompts);
    }
    m_whitespace->setChecked(state.showsWhitespace);
    m_filterButton->setChecked(state.showsFilter);
}

void DataPage::addRow(QWidget *row)
{
    m_layout->insertWidget(m_layout->count() - 1, row);
}

void DataPage::onTableChanged()
{
    m_filter->apply();
    updateButtons();
}

void DataPage::updateButtons()
{
    const DataTableModel &table = m_view->table();
    const bool hasColumns = table.dataset().columnCount() > 0;
    for (QToolButton *button : m_needTable) {
        button->setEnabled(hasColumns);
    }
    onUpdateDataScrollButtons();
}

void DataPage::onToggledDataFilterButton(bool on)
{
    if (m_state) {
        m_state->showsFilter = on;
    }
    m_filter->setVisible(on);
    m_filter->apply();
    if (on && isVisible()) {
        m_filter->focusText();
    }
}

void DataPage::onFilterRowColContains(const QString &value, bool row)
{
    m_filterButton->setChecked(true);
    m_filter->setFilter(value, row);
}

void DataPage::onClickedShowWhitespace(bool on)
{
    if (m_state) {
        m_state->showsWhitespace = on;
    }
    m_view->table().setShowWhitespace(on);
}

void DataPage::onScrollXLeft()
{
    m_view->horizontalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
}

void DataPage::onScrollLeft()
{
    m_view->horizontalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
}

void DataPage::onScrollRight()
{
    m_view->horizontalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
}

void DataPage::onScrollXRight()
{
    m_view->horizontalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
}

void DataPage::onScrollTop()
{
    m_view->verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
}

void DataPage::onScrollUp()
{
    m_view->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
}

void DataPage::onScrollDown()
{
    m_view->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
}

void DataPage::onScrollBottom()
{
    m_view->verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
}

void DataPage::onUpdateDataScrollButtons()
{
    const QScrollBar &across = *m_view->horizontalScrollBar();
    const QScrollBar &down = *m_view->verticalScrollBar();
    const bool states[] = {across.value() > across.minimum(), across.value() < across.maximum(),
        down.value() > down.minimum(), down.value() < down.maximum()};
    constexpr int buttonsOneWay = 2;
    for (int i = 0; i < m_scroll.size(); ++i) {
        m_scroll.at(i)->setEnabled(states[i / buttonsOneWay]);
    }
}
