#include "panes/table/colfrequenciesdialog.h"

#include "data/values.h"
#include "panes/dialogs/helphook.h"
#include "panes/dialogs/prompts.h"
#include "panes/explore/drilldownduplicatesdialog.h"
#include "panes/table/drilldowndialog.h"
#include "panes/widgets/bardelegate.h"
#include "panes/widgets/keptgeometry.h"
#include "panes/widgets/samplingcombobox.h"
#include "panes/widgets/tips.h"
#include "settings/settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int barRole = Qt::UserRole + 1;

constexpr QSize firstSize(900, 550);
constexpr int mostFrequencies = 10000;
constexpr int longestText = 1000;
constexpr int valueRole = Qt::UserRole; ///< the number of a value, or a line of figures

QTableWidget *newTable(const QStringList &headers, const QString &name)
{
    auto *table = new QTableWidget(0, headers.size());
    table->setHorizontalHeaderLabels(headers);
    table->setAccessibleName(name);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    return table;
}

void addLine(QTableWidget &table, int row, const QStringList &texts, const QString &tip, int number)
{
    for (int column = 0; column < texts.size(); ++column) {
        auto *item = new QTableWidgetItem(ellipsized(texts.at(column), longestText));
        item->setToolTip(Tips::plain(tip));
        item->setData(valueRole, number);
        if (column > 0) {
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        }
        table.setItem(row, column, item);
    }
}

} // namespace

ColFrequenciesDialog::ColFrequenciesDialog(const Dataset &dataset, ColumnIndex column, Prompts &prompts)
    : QDialog(prompts.window())
    , m_dataset(dataset)
    , m_prompts(prompts)
    , m_column(new QComboBox)
    , m_order(new QComboBox)
    , m_count(new QSpinBox)
    , m_sample(new SamplingComboBox)
    , m_sampled(new QLabel)
    , m_bars(new QCheckBox(QStringLiteral("show &bars")))
    , m_percentages(new QCheckBox(QStringLiteral("show &percentages")))
    , m_dates(new QCheckBox(QStringLiteral("include &dates")))
    , m_statistics(new QCheckBox(QStringLiteral("include &statistics")))
    , m_frequencies(
          newTable({QStringLiteral("Value"), QStringLiteral("Frequency")}, QStringLiteral("Value frequencies")))
    , m_metrics(newTable({QStringLiteral("Metric"), QStringLiteral("Value")}, QStringLiteral("Metrics")))
{
    setWindowTitle(QStringLiteral("Column Values"));
    HelpHook::setHelpPage(*this, QStringLiteral("Column_values"));
    auto *layout = new QVBoxLayout(this);
    addColumnRow(*layout);
    addSampleRow(*layout);
    auto *sides = new QSplitter;
    sides->addWidget(frequencySide());
    sides->addWidget(metricSide());
    sides->setChildrenCollapsible(false);
    layout->addWidget(sides, 1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    keepGeometry(*this, &Settings::colFrequenciesWindowGeometry, &Settings::setColFrequenciesWindowGeometry, firstSize);
    m_column->setCurrentIndex(column.toInt());
    onColChanged(column.toInt());
    connect(m_column, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ColFrequenciesDialog::onColChanged);
    m_frequencies->setFocus();
}

void ColFrequenciesDialog::addSampleRow(QVBoxLayout &layout)
{
    auto *label = new QLabel(QStringLiteral("Sa&mple:"));
    label->setBuddy(m_sample);
    m_sample->setToolTip(QStringLiteral("Sampling improves speed for large datasets."));
    m_sampled->setAccessibleName(QStringLiteral("Sampled"));
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_sample);
    row->addWidget(m_sampled, 1);
    layout.addLayout(row);
    connect(m_sample, &SamplingComboBox::sampleChanged, this, &ColFrequenciesDialog::readColumn);
}

void ColFrequenciesDialog::addColumnRow(QVBoxLayout &layout)
{
    auto *label = new QLabel(QStringLiteral("&Column:"));
    label->setBuddy(m_column);
    m_column->setToolTip(QStringLiteral("The column whose values are shown."));
    QStringList names;
    for (const QString &name : m_dataset.columnNames()) {
        names.append(ellipsized(name, longestText));
    }
    m_column->addItems(names);
    m_column->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_column, 1);
    m_steps = {
        addStep(
            QStringLiteral("&First"), QStringLiteral("Show the first column."), &ColFrequenciesDialog::onFirstClicked),
        addStep(QStringLiteral("Pre&vious"), QStringLiteral("Show the previous column."),
            &ColFrequenciesDialog::onPrevClicked),
        addStep(QStringLiteral("&Next"), QStringLiteral("Show the next column."), &ColFrequenciesDialog::onNextClicked),
        addStep(QStringLiteral("&Last"), QStringLiteral("Show the last column."), &ColFrequenciesDialog::onLastClicked),
    };
    for (QPushButton *button : qAsConst(m_steps)) {
        row->addWidget(button);
    }
    layout.addLayout(row);
}

QPushButton *ColFrequenciesDialog::addStep(
    const QString &text, const QString &tip, void (ColFrequenciesDialog::*step)())
{
    auto *button = new QPushButton(text);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, step);
    return button;
}

QWidget *ColFrequenciesDialog::frequencySide()
{
    const Settings &settings = Settings::current();
    m_order->addItems({QStringLiteral("Most frequent values"), QStringLiteral("Least frequent values")});
    m_order->setAccessibleName(QStringLiteral("Show"));
    m_count->setRange(1, mostFrequencies);
    m_count->setValue(settings.numColFrequences());
    m_count->setAccessibleName(QStringLiteral("Maximum number of frequencies"));
    m_count->setToolTip(QStringLiteral("Maximum number of frequencies to show."));
    m_bars->setToolTip(QStringLiteral("Check to show a bar behind each frequency."));
    m_bars->setChecked(settings.showBarsInColFrequencies());
    m_percentages->setToolTip(QStringLiteral("Check to show each frequency as a percentage too."));
    m_percentages->setChecked(settings.showPercentagesInColFrquencies());
    auto *label = new QLabel(QStringLiteral("S&how:"));
    label->setBuddy(m_order);
    auto *side = new QWidget;
    auto *layout = new QVBoxLayout(side);
    auto *row = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label);
    row->addWidget(m_order);
    row->addWidget(m_count);
    row->addWidget(m_bars);
    row->addWidget(m_percentages);
    row->addStretch();
    layout->addLayout(row);
    layout->addWidget(m_frequencies);
    m_frequencies->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Interactive);
    m_frequencies->setColumnWidth(1, fontMetrics().averageCharWidth() * 24);
    connect(m_order, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &ColFrequenciesDialog::onShowTopBottomChanged);
    connect(
        m_count, QOverload<int>::of(&QSpinBox::valueChanged), this, &ColFrequenciesDialog::onShowNumFrequenciesChanged);
    connect(m_bars, &QCheckBox::toggled, this, &ColFrequenciesDialog::onShowBarsToggled);
    connect(m_percentages, &QCheckBox::toggled, this, &ColFrequenciesDialog::onFrequenciesPercentageToggled);
    connect(m_frequencies, &QTableWidget::cellDoubleClicked, this,
        &ColFrequenciesDialog::onFrequencyTableCellDoubleClicked);
    return side;
}

QWidget *ColFrequenciesDialog::metricSide()
{
    m_dates->setToolTip(QStringLiteral("Check for date values against all the allowed date formats in 'Preferences' "
                                       "(slow for large datasets)."));
    m_statistics->setToolTip(QStringLiteral("Include sum, average, median, mode, standard deviation, variance, Q1, "
                                            "Q2, IQR and skew for numerical values."));
    auto *side = new QWidget;
    auto *layout = new QVBoxLayout(side);
    auto *row = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_dates);
    row->addWidget(m_statistics);
    row->addStretch();
    layout->addLayout(row);
    layout->addWidget(m_metrics);
    m_metrics->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(m_dates, &QCheckBox::toggled, this, &ColFrequenciesDialog::onIncludeDatesToggled);
    connect(m_statistics, &QCheckBox::toggled, this, &ColFrequenciesDialog::onIncludeStatsToggled);
    connect(m_metrics, &QTableWidget::cellDoubleClicked, this, &ColFrequenciesDialog::onMetricTableCellDoubleClicked);
    return side;
}

void ColFrequenciesDialog::onColChanged(int column)
{
    const int last = m_dataset.columnCount() - 1;
    for (int i = 0; i < m_steps.size(); ++i) {
        m_steps.at(i)->setEnabled(i < m_steps.size() / 2 ? column > 0 : column < last);
    }
    readColumn();
}

void ColFrequenciesDialog::readColumn()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_profile = ColumnProfile();
    const ColumnIndex column(m_column->currentIndex());
    const QStringList formats = m_dates->isChecked() ? dateFormats() : QStringList();
    const int rowCount = m_dataset.rowCount();
    // What is counted in a part of the rows must not be taken for the whole.
    m_sampled->clear();
    m_isSample = !m_sample->takesAllOf(rowCount);
    if (!m_isSample) {
        m_dataset.columnProfile(m_profile, column, formats, m_statistics->isChecked());
    } else {
        const QVector<int> rows = m_sample->rowsOf(rowCount);
        m_dataset.columnProfile(m_profile, column, rows, formats, m_statistics->isChecked());
        m_sampled->setText(QStringLiteral("Counted in %1 of %2 rows")
                               .arg(formatInteger(rows.size(), true), formatInteger(rowCount, true)));
    }
    showFrequencies();
    showMetrics();
    QApplication::restoreOverrideCursor();
}

void ColFrequenciesDialog::showFrequencies()
{
    const CellColumn &column = m_dataset.column(ColumnIndex(m_column->currentIndex()));
    const auto order = m_order->currentIndex() == 0 ? ValueFrequencies::Order::MostFrequent
                                                    : ValueFrequencies::Order::LeastFrequent;
    const QVector<ValueFrequencies::Line> lines = m_profile.m_values.table(column, order, m_count->value());
    const int rows = m_profile.m_values.rowCount();
    m_frequencies->setItemDelegateForColumn(1, nullptr);
    if (m_bars->isChecked()) {
        auto *bars = m_frequencies->findChild<BarDelegate *>();
        m_frequencies->setItemDelegateForColumn(1, bars ? bars : new BarDelegate(barRole, m_frequencies));
    }
    m_frequencies->setRowCount(0);
    m_frequencies->setRowCount(lines.size());
    // Bars of many different values would be too short to see beside all rows.
    int longestBar = 1;
    for (const ValueFrequencies::Line &line : lines) {
        longestBar = line.value < 0 ? longestBar : qMax(longestBar, line.count);
    }
    for (int row = 0; row < lines.size(); ++row) {
        const ValueFrequencies::Line &line = lines.at(row);
        const double share = rows > 0 ? static_cast<double>(line.count) / rows : 0;
        constexpr double percent = 100;
        const QString count = m_percentages->isChecked()
                                  ? QStringLiteral("%1 (%2%)")
                                        .arg(line.countText, formatReal(share * percent, true, 1, false))
                                  : line.countText;
        addLine(*m_frequencies, row, {line.text, count},
            line.value < 0 ? QString() : valueTip(m_profile.m_values, line.value, column), line.value);
        m_frequencies->item(row, 1)->setData(barRole, static_cast<double>(line.count) / longestBar);
    }
}

void ColFrequenciesDialog::showMetrics()
{
    const ProfileWriter writer(QString(), true);
    const QVector<ProfileLine> lines = exploredLines(m_statistics->isChecked());
    m_metrics->setRowCount(0);
    m_metrics->setRowCount(lines.size());
    for (int row = 0; row < lines.size(); ++row) {
        addLine(*m_metrics, row, {profileLabel(lines.at(row)), writer.text(lines.at(row), m_profile)},
            metricTip(lines.at(row)), static_cast<int>(lines.at(row)));
    }
}

QString ColFrequenciesDialog::metricTip(ProfileLine line) const
{
    const CellColumn &column = m_dataset.column(ColumnIndex(m_column->currentIndex()));
    const QString tip = profileTip(line, m_profile, column, m_isSample);
    return line == ProfileLine::Duplicated && m_profile.m_values.duplicated() > 0
               ? tip + QStringLiteral("\nDouble click to drilldown.")
               : tip;
}

void ColFrequenciesDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    QTimer::singleShot(Tips::openingPauseMs, this, &ColFrequenciesDialog::onShowTip);
}

void ColFrequenciesDialog::onShowTip()
{
    constexpr int tipMs = 8000;
    Tips::showOnce(QStringLiteral("tip_col_metrics"), QStringLiteral("See examples"),
        QStringLiteral("Hover over a value or a metric to see examples.\nDouble click it to see the rows."), tipMs,
        m_dates);
}

void ColFrequenciesDialog::showDuplicates()
{
    const ValueFrequencies &values = m_profile.m_values;
    const QVector<int> rows = values.rowsOf([&values](int value) { return values.count(value) > 1; });
    if (!rows.isEmpty()) {
        DrilldownDuplicatesDialog dialog(m_dataset.withRows(rows), ColumnIndex(m_column->currentIndex()), m_prompts);
        m_prompts.exec(dialog);
    }
}

void ColFrequenciesDialog::showRows(const QVector<int> &rows)
{
    if (!rows.isEmpty()) {
        DrilldownDialog dialog(m_dataset.withRows(rows), m_prompts);
        m_prompts.exec(dialog);
    }
}

void ColFrequenciesDialog::onFirstClicked()
{
    m_column->setCurrentIndex(0);
}

void ColFrequenciesDialog::onPrevClicked()
{
    m_column->setCurrentIndex(m_column->currentIndex() - 1);
}

void ColFrequenciesDialog::onNextClicked()
{
    m_column->setCurrentIndex(m_column->currentIndex() + 1);
}

void ColFrequenciesDialog::onLastClicked()
{
    m_column->setCurrentIndex(m_column->count() - 1);
}

void ColFrequenciesDialog::onShowBarsToggled(bool on)
{
    Settings::current().setShowBarsInColFrequencies(on);
    showFrequencies();
}

void ColFrequenciesDialog::onFrequenciesPercentageToggled(bool on)
{
    Settings::current().setShowPercentagesInColFrquencies(on);
    showFrequencies();
}

void ColFrequenciesDialog::onIncludeDatesToggled()
{
    readColumn();
}

void ColFrequenciesDialog::onIncludeStatsToggled()
{
    readColumn();
}

void ColFrequenciesDialog::onShowNumFrequenciesChanged(int count)
{
    Settings::current().setNumColFrequences(count);
    showFrequencies();
}

void ColFrequenciesDialog::onShowTopBottomChanged()
{
    showFrequencies();
}

void ColFrequenciesDialog::onMetricTableCellDoubleClicked(int row, int)
{
    const auto line = static_cast<ProfileLine>(m_metrics->item(row, 0)->data(valueRole).toInt());
    ProfileMetric metric = ProfileMetric::Empty;
    if (line == ProfileLine::Duplicated) {
        showDuplicates();
    } else if (hasRows(line, metric)) {
        showRows(m_profile.rowsOf(metric));
    }
}

void ColFrequenciesDialog::onFrequencyTableCellDoubleClicked(int row, int)
{
    const int value = m_frequencies->item(row, 0)->data(valueRole).toInt();
    if (value >= 0) {
        showRows(m_profile.m_values.rowsOf(value));
    }
}
