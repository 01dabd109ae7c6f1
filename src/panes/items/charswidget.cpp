#include "panes/items/charswidget.h"

#include "data/dataset.h"
#include "panes/icons.h"
#include "panes/table/charactersmodel.h"
#include "panes/widgets/bardelegate.h"
#include "panes/widgets/delayedlineedit.h"
#include "panes/widgets/samplingcombobox.h"
#include "settings/settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>

namespace {

constexpr int cellPadding = 6;

} // namespace

CharsWidget::CharsWidget(QWidget *parent)
    : QWidget(parent)
    , m_model(new CharactersModel(this))
    , m_view(new QTableView)
    , m_bars(new BarDelegate(CharactersModel::ShareRole, this))
    , m_sample(new SamplingComboBox)
    , m_filter(new DelayedLineEdit)
{
    m_view->setModel(m_model);
    m_view->setItemDelegate(m_bars);
    m_view->setAccessibleName(QStringLiteral("Characters"));
    m_view->setToolTip(QStringLiteral("The number of each type of character in each column."));
    m_view->setTabKeyNavigation(false);
    m_view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_view->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cellPadding);
    auto *tools = new QHBoxLayout;
    addTools(*tools);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addLayout(tools);
    layout->addWidget(m_view, 1);
}

void CharsWidget::addTools(QHBoxLayout &tools)
{
    auto *label = new QLabel(QStringLiteral("Sample:"));
    label->setBuddy(m_sample);
    m_sample->setToolTip(
        QStringLiteral("How many rows of the data to sample. Rows are sampled evenly.\nSampling all rows "
                       "can be slow for large datasets."));
    auto *bars = new QCheckBox(QStringLiteral("show bars"));
    bars->setChecked(Settings::current().showBarsInCharsTable());
    m_bars->setShown(bars->isChecked());
    m_filter->setPlaceholderText(QStringLiteral("Filter columns"));
    m_filter->setAccessibleName(QStringLiteral("Filter columns"));
    m_filter->setClearButtonEnabled(true);
    tools.addWidget(label);
    tools.addWidget(m_sample);
    tools.addWidget(bars);
    tools.addWidget(m_filter, 1);
    addScrollButtons(tools);
    connect(m_sample, &SamplingComboBox::sampleChanged, this, &CharsWidget::profile);
    connect(bars, &QCheckBox::toggled, this, [this](bool on) {
        Settings::current().setShowBarsInCharsTable(on);
        m_bars->setShown(on);
        m_view->viewport()->update();
    });
    connect(m_filter, &DelayedLineEdit::delayedEditTextChanged, this, &CharsWidget::filterColumns);
}

void CharsWidget::addScrollButtons(QHBoxLayout &tools)
{
    struct Row
    {
        const char *icon;
        const char *way;
        QAbstractSlider::SliderAction action;
    };
    const Row rows[] = {
        {"go-first", "all the way left", QAbstractSlider::SliderToMinimum},
        {"go-previous", "left", QAbstractSlider::SliderPageStepSub},
        {"go-next", "right", QAbstractSlider::SliderPageStepAdd},
        {"go-last", "all the way right", QAbstractSlider::SliderToMaximum},
    };
    for (const Row &row : rows) {
        auto *button = new QToolButton;
        button->setAutoRaise(true);
        button->setIcon(Icons::icon(QLatin1String(row.icon)));
        button->setToolTip(QStringLiteral("Scroll characters %1.").arg(QLatin1String(row.way)));
        button->setAccessibleName(button->toolTip().chopped(1));
        const QAbstractSlider::SliderAction action = row.action;
        connect(button, &QToolButton::clicked, m_view,
            [this, action] { m_view->horizontalScrollBar()->triggerAction(action); });
        tools.addWidget(button);
    }
}

void CharsWidget::setDataset(const Dataset &dataset)
{
    m_dataset = &dataset;
    m_stale = true;
    if (isVisible()) {
        profile();
    }
}

void CharsWidget::letGo()
{
    m_dataset = nullptr;
    m_model->clear();
}

void CharsWidget::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_stale) {
        profile();
    }
}

void CharsWidget::profile()
{
    if (!m_dataset) {
        return;
    }
    m_stale = false;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_model->setDataset(*m_dataset, m_sample->rowsOf(m_dataset->rowCount()));
    QApplication::restoreOverrideCursor();
    filterColumns();
}

void CharsWidget::filterColumns()
{
    const QString text = m_filter->text();
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const QString name = m_dataset ? m_dataset->columnName(ColumnIndex(column)) : QString();
        m_view->setColumnHidden(column, !name.contains(text, Qt::CaseInsensitive));
    }
}
