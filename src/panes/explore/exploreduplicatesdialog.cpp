#include "panes/explore/exploreduplicatesdialog.h"

#include "data/values.h"
#include "graph/node.h"
#include "panes/dialogs/prompts.h"
#include "panes/explore/checkedcolumnslist.h"
#include "panes/explore/exploreditems.h"
#include "panes/explore/explorehelp.h"
#include "panes/icons.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/widgets/faultmark.h"
#include "panes/widgets/keptgeometry.h"
#include "panes/widgets/tips.h"
#include "settings/settings.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(1000, 600);
constexpr int tipMs = 8000;
constexpr int percent = 100;
constexpr int gap = 6;
constexpr int longestName = 150;
enum Matching { Exact, Fuzzy };

QString found(int dupes, int nonDupes)
{
    return QStringLiteral("%1 and %2")
        .arg(Messages::counted(dupes, "duplicate", "duplicates"),
            Messages::counted(nonDupes, "non-duplicate", "non-duplicates"));
}

QCheckBox *newCheck(const char *text, const char *tip, bool isChecked)
{
    auto *box = new QCheckBox(QLatin1String(text));
    box->setToolTip(QLatin1String(tip));
    box->setChecked(isChecked);
    return box;
}

} // namespace

ExploreDuplicatesDialog::ExploreDuplicatesDialog(const Node &item, const DuplicateOptions &options, Prompts &prompts)
    : QDialog(prompts.window())
    , m_dataset(item.datasetConst())
    , m_columns(new CheckedColumnsList(m_dataset))
    , m_matching(new QComboBox)
    , m_closeness(new QSpinBox)
    , m_caseSensitive(newCheck("case &sensitive", "Check for case sensitive matching.", options.folding.caseSensitive))
    , m_ignoreSpaces(
          newCheck("ignore &whitespace", "Check to ignore whitespace when matching.", options.folding.ignoreSpaces))
    , m_ignorePunctuation(newCheck(
          "ignore &punctuation", "Check to ignore punctuation when matching.", options.folding.ignorePunctuation))
    , m_runButton(new QPushButton(QStringLiteral("&Run")))
    , m_stopButton(new QPushButton(QStringLiteral("S&top")))
    , m_progress(new QProgressBar)
    , m_info(new QLabel)
    , m_stopped(new QLabel(QStringLiteral(" - stopped by user")))
    , m_tabs(new QTabWidget)
    , m_view(new DataTableView)
    , m_hideUnchecked(newCheck("hide &unchecked columns", "Check to hide columns that are not matched.", false))
    , m_hideOthers(newCheck("hide rows with n&o duplicates", "Check to hide rows that no other row matches.", false))
    , m_summary(new QPlainTextEdit)
{
    setWindowTitle(QStringLiteral("Explore Duplicates"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto *label = new QLabel(QStringLiteral("Duplicates in ") + ellipsized(ExploredItems::label(item), longestName));
    label->setTextFormat(Qt::PlainText);
    auto *sides = new QSplitter;
    sides->setChildrenCollapsible(false);
    sides->addWidget(makeOptions(options));
    sides->addWidget(makeResults(prompts));
    sides->setStretchFactor(1, 1);
    sides->setSizes({firstSize.width() / 3, firstSize.width() * 2 / 3});
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    ExploreHelp::add(*this, *buttons, QStringLiteral("Explore_duplicates"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (QAbstractButton *button : buttons->buttons()) {
        qobject_cast<QPushButton *>(button)->setAutoDefault(false);
    }
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(sides, 1);
    layout->addWidget(buttons);
    connect(&m_run, &DuplicateRun::processed, this, &ExploreDuplicatesDialog::onProcessed);
    connect(&m_run, &DuplicateRun::finished, this, &ExploreDuplicatesDialog::onPopulateTable);
    keepGeometry(
        *this, &Settings::exploreDuplicatesWindowGeometry, &Settings::setExploreDuplicatesWindowGeometry, firstSize);
    m_view->table().setDataset(m_dataset);
    onCurrentMatchComboChanged();
    updateButtons();
    m_runButton->setFocus();
}

DuplicateOptions ExploreDuplicatesDialog::optionsOf(const Transform &transform)
{
    DuplicateOptions options;
    const auto flag = [&transform](const QString &name, bool otherwise) {
        const Parameter *parameter = transform.parameter(name);
        return parameter ? parameter->toBool() : otherwise;
    };
    if (const Parameter *columns = transform.parameter(transform.dedupeColumnsParameterName())) {
        options.columns = columns->referencedColumns();
    }
    if (const Parameter *matching = transform.parameter(transform.matchTypeParameterName())) {
        options.isFuzzy = matching->toSelectionIndex() == Fuzzy;
    }
    if (const Parameter *closeness = transform.parameter(transform.fuzzinessParameterName())) {
        options.closeness = closeness->toInt();
    }
    options.folding = {flag(transform.caseSensitiveParameterName(), true),
        flag(transform.ignoreSpacesParameterName(), false), flag(transform.ignorePunctuationParameterName(), false)};
    return options;
}

QWidget *ExploreDuplicatesDialog::makeOptions(const DuplicateOptions &options)
{
    constexpr int leastCloseness = 40;
    constexpr int mostCloseness = 99;
    m_columns->setChecked(options.columns);
    m_matching->addItems({QStringLiteral("Exact"), QStringLiteral("Fuzzy")});
    m_matching->setCurrentIndex(options.isFuzzy ? Fuzzy : Exact);
    m_matching->setObjectName(QStringLiteral("matching"));
    m_matching->setAccessibleName(QStringLiteral("Matching"));
    m_matching->setToolTip(QStringLiteral("Match type. Fuzzy matching allows matching of rows that are close, but not "
                                          "identical.\nFuzzy matching is slower."));
    m_closeness->setRange(leastCloseness, mostCloseness);
    m_closeness->setSuffix(QStringLiteral("%"));
    m_closeness->setValue(options.closeness);
    m_closeness->setAccessibleName(QStringLiteral("Closeness"));
    m_closeness->setToolTip(
        QStringLiteral("How close the match has to be as a percentage to be considered a duplicate.\nE.g. setting it "
                       "to 80 means text in checked columns must be at least 80% the same."));
    auto *side = new QWidget;
    auto *layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(QStringLiteral("Columns to match:")));
    layout->addWidget(m_columns, 1);
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("&Matching:"), m_matching);
    form->addRow(QStringLiteral("&Closeness:"), m_closeness);
    layout->addLayout(form);
    layout->addWidget(m_caseSensitive);
    layout->addWidget(m_ignoreSpaces);
    layout->addWidget(m_ignorePunctuation);
    addRunRow(*layout);
    connect(m_columns, &MultipleColumnsWidget::columnsChanged, this, &ExploreDuplicatesDialog::onColumnsChanged);
    connect(m_matching, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &ExploreDuplicatesDialog::onCurrentMatchComboChanged);
    return side;
}

void ExploreDuplicatesDialog::addRunRow(QVBoxLayout &layout)
{
    m_runButton->setDefault(true);
    m_runButton->setToolTip(QStringLiteral("Run dedupe with current options.\nCheck at least 1 column to run."));
    m_stopButton->setToolTip(QStringLiteral("Stop current dedupe operation."));
    m_stopButton->setAutoDefault(false);
    m_progress->setRange(0, percent);
    m_progress->setValue(0);
    m_progress->setAccessibleName(QStringLiteral("Progress"));
    m_progress->setMinimumWidth(fontMetrics().averageCharWidth() * 6);
    auto *row = new QHBoxLayout;
    row->addWidget(m_runButton);
    row->addWidget(m_stopButton);
    row->addWidget(m_progress, 1);
    layout.addLayout(row);
    connect(m_runButton, &QPushButton::clicked, this, &ExploreDuplicatesDialog::onRun);
    connect(m_stopButton, &QPushButton::clicked, this, &ExploreDuplicatesDialog::onStop);
}

QWidget *ExploreDuplicatesDialog::makeResults(Prompts &prompts)
{
    m_view->setPrompts(prompts);
    m_view->setAccessibleName(QStringLiteral("Duplicates"));
    m_summary->setReadOnly(true);
    m_summary->setAccessibleName(QStringLiteral("Summary"));
    m_summary->setPlaceholderText(QStringLiteral("Press the 'Run' button to explore duplicates."));
    m_tabs->addTab(makeDataPage(), QStringLiteral("&Data"));
    m_tabs->addTab(m_summary, QStringLiteral("Summar&y"));
    QPalette red = m_stopped->palette();
    red.setColor(QPalette::WindowText, QColor(FaultMark::color));
    m_stopped->setPalette(red);
    m_stopped->hide();
    m_info->setText(QStringLiteral("Press the 'Run' button to explore duplicates."));
    m_info->setAccessibleName(QStringLiteral("Result"));
    auto *info = new QHBoxLayout;
    info->setSpacing(0);
    info->addWidget(m_info);
    info->addWidget(m_stopped);
    info->addStretch(1);
    auto *side = new QWidget;
    auto *layout = new QVBoxLayout(side);
    layout->setContentsMargins(gap, 0, 0, 0);
    layout->addWidget(m_tabs, 1);
    layout->addLayout(info);
    return side;
}

QWidget *ExploreDuplicatesDialog::makeDataPage()
{
    m_previous = makeArrow("go-up", "Previous duplicate row", "Go to the previous duplicate row.",
        &ExploreDuplicatesDialog::onPrevClicked);
    m_next = makeArrow(
        "go-down", "Next duplicate row", "Go to the next duplicate row.", &ExploreDuplicatesDialog::onNextClicked);
    auto *row = new QHBoxLayout;
    row->addWidget(m_hideUnchecked);
    row->addWidget(m_hideOthers);
    row->addStretch(1);
    row->addWidget(m_previous);
    row->addWidget(m_next);
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addLayout(row);
    layout->addWidget(m_view, 1);
    connect(m_hideUnchecked, &QCheckBox::toggled, this, &ExploreDuplicatesDialog::onHideUncheckedChanged);
    connect(m_hideOthers, &QCheckBox::toggled, this, &ExploreDuplicatesDialog::onHideNonDupeRowsChanged);
    return page;
}

QToolButton *ExploreDuplicatesDialog::makeArrow(
    const char *icon, const char *name, const char *tip, void (ExploreDuplicatesDialog::*go)())
{
    auto *button = new QToolButton;
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(Icons::icon(QLatin1String(icon)));
    button->setAccessibleName(QLatin1String(name));
    button->setToolTip(QLatin1String(tip));
    connect(button, &QToolButton::clicked, this, go);
    return button;
}

void ExploreDuplicatesDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    QTimer::singleShot(Tips::openingPauseMs, this, &ExploreDuplicatesDialog::onRunTip);
}

void ExploreDuplicatesDialog::onRunTip()
{
    Tips::showOnce(QStringLiteral("tip_explore_dupes_run"), windowTitle(),
        QStringLiteral("Press the 'Run' button to explore duplicates with the current options."), tipMs, m_runButton);
}

DuplicateOptions ExploreDuplicatesDialog::options() const
{
    const KeyFolding folding{
        m_caseSensitive->isChecked(), m_ignoreSpaces->isChecked(), m_ignorePunctuation->isChecked()};
    return {m_columns->checkedColumns(), m_matching->currentIndex() == Fuzzy, m_closeness->value(), folding};
}

void ExploreDuplicatesDialog::onColumnsChanged()
{
    onHideUncheckedChanged();
}

void ExploreDuplicatesDialog::onCurrentMatchComboChanged()
{
    m_closeness->setEnabled(m_matching->currentIndex() == Fuzzy);
}

void ExploreDuplicatesDialog::onRun()
{
    if (m_run.isRunning()) {
        return;
    }
    const DuplicateOptions chosen = options();
    m_stopped->hide();
    if (chosen.columns.isEmpty()) {
        m_info->setText(QStringLiteral("Check at least 1 column to run."));
        m_columns->setFocus();
        return;
    }
    m_info->setText(QStringLiteral("Looking for duplicates..."));
    m_run.start(m_dataset, chosen);
    updateButtons();
    m_stopButton->setFocus();
}

void ExploreDuplicatesDialog::onStop()
{
    m_run.stop();
    m_stopButton->setEnabled(false);
}

void ExploreDuplicatesDialog::onProcessed(qreal progress, int nonDupesFound, int dupesFound)
{
    // What was on its way when the search ended would overwrite the result.
    if (m_run.isRunning()) {
        m_progress->setValue(static_cast<int>(progress * percent));
        m_info->setText(QStringLiteral("Found %1 so far").arg(found(dupesFound, nonDupesFound)));
    }
}

void ExploreDuplicatesDialog::onPopulateTable()
{
    m_hasResult = !m_run.ranOutOfMemory();
    if (!m_hasResult) {
        m_view->table().setDataset(m_dataset);
        m_summary->clear();
        m_info->setText(QStringLiteral("There is not enough memory to look for duplicates."));
        updateButtons();
        return;
    }
    m_view->table().setDataset(m_run.table());
    m_view->table().setHighlightRows(m_run.groups().duplicates());
    onHideNonDupeRowsChanged();
    onHideUncheckedChanged();
    m_summary->setPlainText(m_run.groups().summary().join(QLatin1Char('\n')));
    showInfo();
    updateButtons();
    m_runButton->setFocus();
    if (m_tabs->currentIndex() == 0) {
        Tips::showOnce(QStringLiteral("tip_explorer_dupes_table"), windowTitle(),
            QStringLiteral("Extra columns have been added to the right. Duplicate rows (if any) are colored."), tipMs,
            m_tabs->tabBar(), Qt::RightEdge);
    }
}

void ExploreDuplicatesDialog::showInfo()
{
    const DuplicateGroups &groups = m_run.groups();
    m_info->setText(
        QStringLiteral("Found %1 in %2 seconds")
            .arg(found(groups.duplicateCount(), groups.groupCount()), formatReal(m_run.seconds(), true, 1, false)));
    m_stopped->setVisible(m_run.wasStopped());
    m_progress->setValue(m_run.wasStopped() ? m_progress->value() : percent);
}

void ExploreDuplicatesDialog::onHideUncheckedChanged()
{
    const QList<ColumnId> checked = m_columns->checkedColumns();
    for (int i = 0; i < m_dataset.columnCount(); ++i) {
        m_view->setColumnHidden(
            i, m_hideUnchecked->isChecked() && !checked.contains(m_dataset.columnId(ColumnIndex(i))));
    }
}

void ExploreDuplicatesDialog::onHideNonDupeRowsChanged()
{
    if (m_hasResult) {
        const DuplicateGroups &groups = m_run.groups();
        m_view->table().setShownRows(m_hideOthers->isChecked() ? groups.rowsWithDuplicates() : groups.rows());
    }
}

void ExploreDuplicatesDialog::goToDuplicate(int direction)
{
    const DataTableModel &table = m_view->table();
    const std::vector<bool> duplicates = m_run.groups().duplicates();
    const QModelIndex current = m_view->currentIndex();
    int row = current.isValid() ? current.row() : direction > 0 ? -1 : table.rowCount();
    do {
        row += direction;
    } while (row >= 0 && row < table.rowCount() && !duplicates[static_cast<size_t>(table.rowOf(row).toInt())]);
    if (row >= 0 && row < table.rowCount()) {
        const int column = current.isValid() ? current.column() : qMax(0, m_view->columnAt(0));
        m_view->setCurrentIndex(table.index(row, column));
        m_view->scrollTo(table.index(row, column), QAbstractItemView::PositionAtCenter);
    }
}

void ExploreDuplicatesDialog::updateButtons()
{
    const bool isRunning = m_run.isRunning();
    m_runButton->setEnabled(!isRunning);
    m_stopButton->setEnabled(isRunning);
    const bool hasDuplicates = m_hasResult && !isRunning && m_run.groups().duplicateCount() > 0;
    m_previous->setEnabled(hasDuplicates);
    m_next->setEnabled(hasDuplicates);
    m_hideOthers->setEnabled(!isRunning);
}
