#include "panes/explore/comparedatasetsdialog.h"

#include "data/values.h"
#include "panes/explore/comparedside.h"
#include "panes/explore/diffsoverview.h"
#include "panes/explore/exploreditems.h"
#include "panes/explore/explorehelp.h"
#include "panes/icons.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/datatableview.h"
#include "panes/widgets/colorbutton.h"
#include "panes/widgets/keptgeometry.h"
#include "panes/widgets/singlecolumnfilteredwidget.h"
#include "settings/settingkey.h"
#include "settings/settings.h"
#include "settings/settingsnotifier.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

namespace {

constexpr QSize firstSize(1100, 650);
constexpr int progressDelayMs = 500;
constexpr int progressSteps = 1000;

} // namespace

CompareDatasetsDialog::CompareDatasetsDialog(ExploredItems &items, int leftId, int rightId, QWidget *parent)
    : QDialog(parent)
    , m_items(items)
    , m_by(new QComboBox)
    , m_show(new QComboBox)
    , m_caseSensitive(new QCheckBox(QStringLiteral("case sensitive")))
    , m_sortByKey(new QCheckBox(QStringLiteral("sort by key")))
    , m_color(new ColorButton)
    , m_swap(new QPushButton(QStringLiteral("S&wap")))
    , m_left(new ComparedSide(QStringLiteral("Left"), leftId))
    , m_right(new ComparedSide(QStringLiteral("Right"), rightId))
    , m_overview(new DiffsOverview)
    , m_rowDifferences(new QLabel)
    , m_headerDifferences(new QLabel)
    , m_syncVert(new QCheckBox(QStringLiteral("synchronize vertical scroll")))
    , m_syncHoriz(new QCheckBox(QStringLiteral("synchronize horizontal scroll")))
{
    setWindowTitle(QStringLiteral("Compare Data"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(makeChoices());
    layout->addWidget(makeSides(), 1);
    layout->addLayout(makeTools());
    layout->addLayout(makeBottom());
    readSettings();
    connectItems();
    keepGeometry(*this, &Settings::compareDataWindowGeometry, &Settings::setCompareDataWindowGeometry, firstSize);
    m_left->view().setFocus();
    rebuild();
}

CompareDatasetsDialog::~CompareDatasetsDialog() = default;

QHBoxLayout *CompareDatasetsDialog::makeChoices()
{
    m_by->addItems({QStringLiteral("Row numbers"), QStringLiteral("Key columns")});
    m_by->setToolTip(QStringLiteral("Choose how to compare rows.\nRow numbers to align by row number.\nKey columns to "
                                    "align by columns with common key values."));
    m_show->addItems({QStringLiteral("All rows"), QStringLiteral("Only matches"), QStringLiteral("Only differences")});
    m_show->setToolTip(QStringLiteral("Choose which rows to show."));
    m_caseSensitive->setToolTip(QStringLiteral("Check for case sensitive matching of keys."));
    m_sortByKey->setToolTip(QStringLiteral("Check to sort rows in ascending order of key column. \nOtherwise sort by "
                                           "first occurrence of key in left pane and then first occurrence of key in "
                                           "right pane."));
    auto *row = new QHBoxLayout;
    const auto addLabelled = [row](const QString &text, QWidget *widget) {
        auto *label = new QLabel(text);
        label->setBuddy(widget);
        widget->setAccessibleName(QString(text).remove(QLatin1Char('&')));
        row->addWidget(label);
        row->addWidget(widget);
    };
    addLabelled(QStringLiteral("Compare rows &by:"), m_by);
    row->addWidget(m_caseSensitive);
    row->addWidget(m_sortByKey);
    row->addSpacing(fontMetrics().averageCharWidth() * 2);
    addLabelled(QStringLiteral("&Show:"), m_show);
    row->addStretch(1);
    return row;
}

QWidget *CompareDatasetsDialog::makeSides()
{
    auto *splitter = new QSplitter;
    splitter->addWidget(m_left);
    splitter->addWidget(m_right);
    splitter->setChildrenCollapsible(false);
    auto *sides = new QWidget;
    auto *row = new QHBoxLayout(sides);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(splitter, 1);
    row->addWidget(m_overview);
    return sides;
}

QHBoxLayout *CompareDatasetsDialog::makeTools()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(2);
    m_steps = {
        addStep(*row, QStringLiteral("go-top"), QStringLiteral("Top"),
            QStringLiteral("Go to the top of both datasets."), QStringLiteral("Alt+Home"),
            &CompareDatasetsDialog::onScrollTop),
        addStep(*row, QStringLiteral("go-up"), QStringLiteral("Previous row difference"),
            QStringLiteral("Go to the previous row with a difference."), QStringLiteral("Ctrl+Shift+F3"),
            &CompareDatasetsDialog::onPrevRowDiff),
        addStep(*row, QStringLiteral("change-previous"), QStringLiteral("Previous difference"),
            QStringLiteral("Go to the previous difference."), QStringLiteral("Shift+F3"),
            &CompareDatasetsDialog::onPrevDiff),
        addStep(*row, QStringLiteral("change-next"), QStringLiteral("Next difference"),
            QStringLiteral("Go to the next difference."), QStringLiteral("F3"), &CompareDatasetsDialog::onNextDiff),
        addStep(*row, QStringLiteral("go-down"), QStringLiteral("Next row difference"),
            QStringLiteral("Go to the next row with a difference."), QStringLiteral("Ctrl+F3"),
            &CompareDatasetsDialog::onNextRowDiff),
        addStep(*row, QStringLiteral("go-bottom"), QStringLiteral("Bottom"),
            QStringLiteral("Go to the bottom of both datasets."), QStringLiteral("Alt+End"),
            &CompareDatasetsDialog::onScrollBottom),
    };
    const auto addCount = [&](const QString &text, QLabel *count) {
        row->addSpacing(fontMetrics().averageCharWidth() * 2);
        row->addWidget(new QLabel(text));
        row->addSpacing(fontMetrics().averageCharWidth());
        row->addWidget(count);
        count->setAccessibleName(text);
    };
    addCount(QStringLiteral("Row differences:"), m_rowDifferences);
    addCount(QStringLiteral("Header differences:"), m_headerDifferences);
    m_headerDifferences->setToolTip(QStringLiteral("'Compare Headers' in the View menu shows them in detail."));
    row->addStretch(1);
    auto *colorLabel = new QLabel(QStringLiteral("&Color:"));
    colorLabel->setBuddy(m_color);
    m_color->setAccessibleName(QStringLiteral("Color:"));
    m_color->setToolTip(QStringLiteral("The color to shown differences in."));
    m_swap->setToolTip(QStringLiteral("Swap the left and right datasets."));
    m_swap->setAutoDefault(false);
    row->addWidget(colorLabel);
    row->addWidget(m_color);
    row->addSpacing(fontMetrics().averageCharWidth());
    row->addWidget(m_swap);
    return row;
}

QHBoxLayout *CompareDatasetsDialog::makeBottom()
{
    m_syncVert->setToolTip(QStringLiteral("Check to scroll both datasets up and down together."));
    m_syncHoriz->setToolTip(QStringLiteral("Check to scroll both datasets left and right together."));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    // Enter is for the tables here.
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    ExploreHelp::add(*this, *buttons, QStringLiteral("Compare_data"));
    auto *row = new QHBoxLayout;
    row->addWidget(m_syncVert);
    row->addSpacing(fontMetrics().averageCharWidth());
    row->addWidget(m_syncHoriz);
    row->addWidget(buttons, 1);
    return row;
}

QToolButton *CompareDatasetsDialog::addStep(QHBoxLayout &row, const QString &icon, const QString &name,
    const QString &tip, const QString &keys, void (CompareDatasetsDialog::*step)())
{
    auto *button = new QToolButton;
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIcon(Icons::icon(icon));
    button->setAccessibleName(name);
    button->setToolTip(QStringLiteral("%1 (%2)").arg(tip, keys));
    connect(button, &QToolButton::clicked, this, step);
    // A button's own shortcut waits until it has been seen pressed, too long for a key that is held.
    connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, step);
    row.addWidget(button);
    return button;
}

void CompareDatasetsDialog::readSettings()
{
    const Settings &settings = Settings::current();
    m_by->setCurrentIndex(static_cast<int>(settings.compareDataByIndex()));
    m_show->setCurrentIndex(static_cast<int>(settings.compareDataShowIndex()));
    m_caseSensitive->setChecked(settings.compareDataCaseSensitive());
    m_sortByKey->setChecked(settings.compareDataSortByKey());
    m_syncVert->setChecked(settings.compareDataSyncVert());
    m_syncHoriz->setChecked(settings.compareDataSyncHoriz());
    m_color->setColor(settings.changedDataColor());
}

void CompareDatasetsDialog::connectItems()
{
    connect(m_by, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CompareDatasetsDialog::onChangeCompareBy);
    connect(
        m_show, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CompareDatasetsDialog::onShowComboChanged);
    connect(m_caseSensitive, &QCheckBox::toggled, this, &CompareDatasetsDialog::onCaseSensitiveChanged);
    connect(m_sortByKey, &QCheckBox::toggled, this, &CompareDatasetsDialog::onSortByKeyChanged);
    connect(m_syncVert, &QCheckBox::toggled, this, &CompareDatasetsDialog::onSyncVert);
    connect(m_syncHoriz, &QCheckBox::toggled, this, &CompareDatasetsDialog::onSyncHoriz);
    connect(m_color, &ColorButton::colorChosen, this, &CompareDatasetsDialog::onChangeColor);
    connect(m_swap, &QPushButton::clicked, this, &CompareDatasetsDialog::onSwap);
    connect(&m_left->key(), &SingleColumnFilteredWidget::columnChanged, this,
        &CompareDatasetsDialog::onLeftKeyColumnChanged);
    connect(&m_right->key(), &SingleColumnFilteredWidget::columnChanged, this,
        &CompareDatasetsDialog::onRightKeyColumnChanged);
    connect(
        m_left->view().verticalScrollBar(), &QScrollBar::valueChanged, this, &CompareDatasetsDialog::onLeftVertScroll);
    connect(m_left->view().horizontalScrollBar(), &QScrollBar::valueChanged, this,
        &CompareDatasetsDialog::onLeftHorizScroll);
    connect(m_right->view().verticalScrollBar(), &QScrollBar::valueChanged, this,
        &CompareDatasetsDialog::onRightVertScroll);
    connect(m_right->view().horizontalScrollBar(), &QScrollBar::valueChanged, this,
        &CompareDatasetsDialog::onRightHorizScroll);
    connect(m_left->view().selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        &CompareDatasetsDialog::onLeftViewCurrentRowChange);
    connectSide(*m_left);
    connectSide(*m_right);
    connect(m_overview, &DiffsOverview::rowChosen, this, &CompareDatasetsDialog::scrollTo);
    connect(&m_items, &ExploredItems::changed, this, &CompareDatasetsDialog::rebuild);
    connect(&m_items, &ExploredItems::runStarted, this, [this] {
        m_comparison = DatasetComparison();
        m_left->letGo();
        m_right->letGo();
        updateCounts(false);
    });
    connect(&Settings::current().notifier(), &SettingsNotifier::changed, this, [this](const QString &key) {
        if (key == SettingKey::changedDataColor) {
            m_color->setColor(Settings::current().changedDataColor());
            refreshPairs();
        }
    });
}

void CompareDatasetsDialog::connectSide(const ComparedSide &side)
{
    const DataTableView &view = side.view();
    const DataTableView &other = &side == m_left ? m_right->view() : m_left->view();
    connect(view.verticalScrollBar(), &QScrollBar::rangeChanged, this, &CompareDatasetsDialog::updateOverview);
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this, &CompareDatasetsDialog::updateSteps);
    // Columns of different widths would scroll away from each other.
    connect(view.horizontalHeader(), &QHeaderView::sectionResized, this, [this, &other](int column, int, int width) {
        if (m_syncHoriz->isChecked() && column < other.horizontalHeader()->count()) {
            other.horizontalHeader()->resizeSection(column, width);
        }
    });
}

bool CompareDatasetsDialog::isByKey() const
{
    return m_by->currentIndex() == static_cast<int>(RowPairing::KeyColumns);
}

void CompareDatasetsDialog::rebuild()
{
    if (m_isComparing || m_items.isRunning()) {
        m_isOutdated = true;
        return;
    }
    setUpdatesEnabled(false);
    m_isOutdated = false;
    for (QWidget *widget : {m_caseSensitive, m_sortByKey}) {
        widget->setVisible(isByKey());
    }
    m_left->setKeyShown(isByKey());
    m_right->setKeyShown(isByKey());
    m_comparison = DatasetComparison();
    const QPointer<CompareDatasetsDialog> guard(this);
    if (hasTables()) {
        setUpdatesEnabled(true);
        const bool isDone = runComparison();
        if (!guard) {
            return;
        }
        if (isDone) {
            showPairs();
        } else {
            const QString text = QStringLiteral("The comparison was stopped.\nChange a choice to compare again.");
            showNothing(text, text);
        }
    }
    setUpdatesEnabled(true);
    if (m_isOutdated) {
        rebuild();
    }
}

bool CompareDatasetsDialog::hasTables()
{
    const bool hasLeft = m_left->read(m_items);
    const bool hasRight = m_right->read(m_items);
    if (!hasLeft || !hasRight) {
        const QString nothing = QStringLiteral("Nothing to compare with.");
        showNothing(hasLeft ? nothing : m_left->noTableText(), hasRight ? nothing : m_right->noTableText());
        return false;
    }
    if (isByKey() && (!m_left->keyColumn().isValid() || !m_right->keyColumn().isValid())) {
        const QString choose = QStringLiteral("Choose a key column above.");
        const QString wait = QStringLiteral("Choose a key column for the other dataset too.");
        showNothing(m_left->keyColumn().isValid() ? wait : choose, m_right->keyColumn().isValid() ? wait : choose);
        return false;
    }
    return true;
}

bool CompareDatasetsDialog::runComparison()
{
    DatasetComparison::Options options;
    options.pairing = isByKey() ? RowPairing::KeyColumns : RowPairing::RowNumbers;
    options.leftKey = m_left->keyColumn();
    options.rightKey = m_right->keyColumn();
    options.caseSensitive = m_caseSensitive->isChecked();
    options.sortByKey = m_sortByKey->isChecked();
    const QPointer<CompareDatasetsDialog> guard(this);
    m_isComparing = true;
    DatasetComparison comparison(m_left->dataset(), m_right->dataset());
    bool isDone = false;
    {
        QProgressDialog progress(QStringLiteral("Comparing rows..."), QStringLiteral("&Stop"), 0, progressSteps);
        progress.setWindowTitle(windowTitle());
        progress.setWindowModality(Qt::ApplicationModal);
        progress.setMinimumDuration(progressDelayMs);
        isDone = comparison.compare(options, [&](double fraction) {
            progress.setValue(static_cast<int>(fraction * progressSteps));
            return guard && !progress.wasCanceled();
        });
    }
    if (guard) {
        m_isComparing = false;
        m_comparison = std::move(comparison);
    }
    return isDone;
}

void CompareDatasetsDialog::refreshPairs()
{
    if (m_isCompared) {
        showPairs();
    }
}

void CompareDatasetsDialog::showPairs()
{
    m_comparison.show(static_cast<ComparedPairs>(m_show->currentIndex()));
    const auto isMarked = [this](int pair, ColumnIndex column) {
        return pair < m_comparison.pairCount() && m_comparison.isDifferent(pair, column);
    };
    for (const ComparedSide *side : {m_left, m_right}) {
        DataTableView &view = side->view();
        const int top = view.verticalScrollBar()->value();
        const int left = view.horizontalScrollBar()->value();
        view.setWait(DataTableView::Wait::None);
        view.table().setDataset(side->dataset());
        view.table().setArrangedRows(
            side == m_left ? m_comparison.leftRows() : m_comparison.rightRows(), isMarked, m_color->color());
        view.verticalScrollBar()->setValue(top);
        view.horizontalScrollBar()->setValue(left);
    }
    updateCounts(true);
}

void CompareDatasetsDialog::showNothing(const QString &left, const QString &right)
{
    m_comparison = DatasetComparison();
    m_left->showText(left);
    m_right->showText(right);
    updateCounts(false);
}

void CompareDatasetsDialog::updateCounts(bool isCompared)
{
    m_isCompared = isCompared;
    m_rowDifferences->setText(isCompared ? formatInteger(m_comparison.rowDifferences(), true) : QString());
    m_headerDifferences->setText(isCompared ? formatInteger(m_comparison.headerDifferences(), true) : QString());
    m_overview->setRows(m_comparison.pairCount(), m_comparison.differentPairs(), m_color->color());
    updateOverview();
    updateSteps();
}

void CompareDatasetsDialog::updateSteps()
{
    const DatasetComparison::Place place = currentPlace();
    const bool hasRows = m_comparison.pairCount() > 0;
    const bool isEnabled[] = {hasRows, m_comparison.differentPairBefore(place.pair) >= 0,
        m_comparison.differenceBefore(place).isValid(), m_comparison.differenceAfter(place).isValid(),
        m_comparison.differentPairAfter(place.pair) >= 0, hasRows};
    for (int i = 0; i < m_steps.size(); ++i) {
        m_steps.at(i)->setEnabled(isEnabled[i]);
    }
}

void CompareDatasetsDialog::updateOverview()
{
    const DataTableView &view = m_left->view();
    const int first = view.rowAt(0);
    const int last = view.rowAt(view.viewport()->height() - 1);
    m_overview->onViewScrolled(qMax(0, first), last < 0 ? m_comparison.pairCount() - 1 : last);
}

DatasetComparison::Place CompareDatasetsDialog::currentPlace() const
{
    const bool isOnTheRight = m_right->view().hasFocus() && m_right->view().currentIndex().isValid();
    const QModelIndex index = (isOnTheRight ? m_right : m_left)->view().currentIndex();
    return index.isValid() ? DatasetComparison::Place{index.row(), index.column()} : DatasetComparison::Place();
}

void CompareDatasetsDialog::goTo(const DatasetComparison::Place &place)
{
    if (!place.isValid()) {
        return;
    }
    for (const ComparedSide *side : {m_left, m_right}) {
        DataTableView &view = side->view();
        const int column = qMin(place.column, view.table().columnCount() - 1);
        view.setCurrentIndex(view.table().index(place.pair, column));
    }
    updateSteps();
}

void CompareDatasetsDialog::scrollTo(int pair)
{
    for (const ComparedSide *side : {m_left, m_right}) {
        DataTableView &view = side->view();
        // To the row alone: a column that isn't in sight stays where it is.
        const int column = qMax(0, view.columnAt(0));
        view.scrollTo(view.table().index(pair, column), QAbstractItemView::PositionAtCenter);
    }
}

void CompareDatasetsDialog::onChangeCompareBy(int index)
{
    Settings::current().setCompareDataByIndex(static_cast<RowPairing>(index));
    rebuild();
}

void CompareDatasetsDialog::onShowComboChanged(int index)
{
    Settings::current().setCompareDataShowIndex(static_cast<ComparedPairs>(index));
    refreshPairs();
}

void CompareDatasetsDialog::onLeftKeyColumnChanged()
{
    rebuild();
}

void CompareDatasetsDialog::onRightKeyColumnChanged()
{
    rebuild();
}

void CompareDatasetsDialog::onSortByKeyChanged(bool on)
{
    Settings::current().setCompareDataSortByKey(on);
    rebuild();
}

void CompareDatasetsDialog::onCaseSensitiveChanged(bool on)
{
    Settings::current().setCompareDataCaseSensitive(on);
    rebuild();
}

void CompareDatasetsDialog::onScrollTop()
{
    if (m_comparison.pairCount() > 0) {
        goTo({0, qMax(0, currentPlace().column)});
    }
}

void CompareDatasetsDialog::onScrollBottom()
{
    if (m_comparison.pairCount() > 0) {
        goTo({m_comparison.pairCount() - 1, qMax(0, currentPlace().column)});
    }
}

void CompareDatasetsDialog::onNextRowDiff()
{
    goTo(m_comparison.differenceAfter({currentPlace().pair, m_comparison.columnCount()}));
}

void CompareDatasetsDialog::onPrevRowDiff()
{
    const int pair = m_comparison.differentPairBefore(currentPlace().pair);
    // The first difference in it, as in the rows that the other way leads to.
    goTo(pair < 0 ? DatasetComparison::Place() : m_comparison.differenceAfter({pair, -1}));
}

void CompareDatasetsDialog::onNextDiff()
{
    goTo(m_comparison.differenceAfter(currentPlace()));
}

void CompareDatasetsDialog::onPrevDiff()
{
    goTo(m_comparison.differenceBefore(currentPlace()));
}

void CompareDatasetsDialog::onLeftVertScroll(int value)
{
    if (m_syncVert->isChecked()) {
        m_right->view().verticalScrollBar()->setValue(value);
    }
    updateOverview();
}

void CompareDatasetsDialog::onLeftHorizScroll(int value)
{
    if (m_syncHoriz->isChecked()) {
        m_right->view().horizontalScrollBar()->setValue(value);
    }
}

void CompareDatasetsDialog::onRightVertScroll(int value)
{
    if (m_syncVert->isChecked()) {
        m_left->view().verticalScrollBar()->setValue(value);
    }
}

void CompareDatasetsDialog::onRightHorizScroll(int value)
{
    if (m_syncHoriz->isChecked()) {
        m_left->view().horizontalScrollBar()->setValue(value);
    }
}

void CompareDatasetsDialog::onSyncVert(bool on)
{
    Settings::current().setCompareDataSyncVert(on);
    onLeftVertScroll(m_left->view().verticalScrollBar()->value());
}

void CompareDatasetsDialog::onSyncHoriz(bool on)
{
    Settings::current().setCompareDataSyncHoriz(on);
    onLeftHorizScroll(m_left->view().horizontalScrollBar()->value());
}

void CompareDatasetsDialog::onChangeColor(const QColor &color)
{
    Settings::current().setChangedDataColor(color);
}

void CompareDatasetsDialog::onLeftViewCurrentRowChange(const QModelIndex &current)
{
    DataTableView &right = m_right->view();
    const QModelIndex place = right.currentIndex();
    if (current.isValid() && place.row() != current.row() && right.table().columnCount() > 0) {
        const int column = qMin(current.column(), right.table().columnCount() - 1);
        right.setCurrentIndex(right.table().index(current.row(), column));
    }
}

void CompareDatasetsDialog::onSwap()
{
    const int leftId = m_left->itemId();
    const ColumnId leftKey = m_left->key().column();
    m_left->setItem(m_right->itemId(), m_right->key().column());
    m_right->setItem(leftId, leftKey);
    rebuild();
}
