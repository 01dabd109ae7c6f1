#include "panes/table/datatableview.h"

#include "data/values.h"
#include "panes/dialogs/prompts.h"
#include "panes/status/statusbar.h"
#include "panes/table/datatablemodel.h"
#include "panes/table/selectionfigures.h"
#include "panes/table/tableclipboard.h"
#include "panes/table/tablewindows.h"
#include "panes/widgets/tips.h"
#include "settings/settingkey.h"
#include "settings/settings.h"
#include "settings/settingsnotifier.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

namespace {

constexpr int longestInMenu = 30;
constexpr int tipMs = 8000;

/// Text in a menu, where "&" would underline what follows and a tab would begin a shortcut.
QString menuText(const QString &text)
{
    return ellipsized(text.left(longestInMenu + 1).simplified(), longestInMenu)
        .replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

DataTableView::DataTableView(QWidget *parent)
    : QTableView(parent)
    , m_model(new DataTableModel(this))
{
    setModel(m_model);
    setAccessibleName(QStringLiteral("Data"));
    setToolTip(QStringLiteral(
        "Data values.\nSelect cell(s) and %1+C to copy to clipboard.\nDouble click the header on the left of a row to "
        "display the row values in a new window.\nDouble click the header on the top of a column to display the most "
        "frequent column values in a new window.")
                   .arg(QStringLiteral("Ctrl")));
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setHighlightSections(false);
    readFont();
    connectHeaders();
    connect(this, &QAbstractItemView::doubleClicked, this, &DataTableView::onDoubleClicked);
    // A new table begins without a selection, which the selection model doesn't tell.
    connect(m_model, &QAbstractItemModel::modelReset, this, &DataTableView::selectedDataCellsChanged);
    connect(&Settings::current().notifier(), &SettingsNotifier::changed, this, [this](const QString &key) {
        if (key == SettingKey::dataFont || key == SettingKey::dataFontVerticalPadding) {
            readFont();
        }
    });
}

DataTableView::~DataTableView() = default;

void DataTableView::readFont()
{
    const Settings &settings = Settings::current();
    setFont(settings.dataFont());
    const int height = QFontMetrics(settings.dataFont()).height() + 2 * settings.dataFontVerticalPadding();
    verticalHeader()->setDefaultSectionSize(height);
    setMinimumSize(verticalHeader()->sizeHint().width() + 1, horizontalHeader()->sizeHint().height() + 1);
}

void DataTableView::connectHeaders()
{
    QHeaderView *rows = verticalHeader();
    QHeaderView *columns = horizontalHeader();
    rows->setContextMenuPolicy(Qt::CustomContextMenu);
    columns->setContextMenuPolicy(Qt::CustomContextMenu);
    // Headers don't show what is selected, but would go through all rows to find out.
    rows->setSelectionModel(new QItemSelectionModel(m_model, this));
    columns->setSelectionModel(new QItemSelectionModel(m_model, this));
    connect(rows, &QHeaderView::sectionDoubleClicked, this, &DataTableView::onVerticalHeaderDoubleClicked);
    connect(columns, &QHeaderView::sectionDoubleClicked, this, &DataTableView::onHorizontalHeaderDoubleClicked);
    connect(rows, &QWidget::customContextMenuRequested, this, &DataTableView::onVerticalHeaderRightClicked);
    connect(columns, &QWidget::customContextMenuRequested, this, &DataTableView::onHorizontalHeaderRightClicked);
    connect(columns, &QHeaderView::sectionResized, this, &DataTableView::onHeaderSectionResized);
}

Prompts &DataTableView::prompts()
{
    if (!m_prompts) {
        m_ownPrompts = std::make_unique<Prompts>(this);
        m_prompts = m_ownPrompts.get();
    }
    return *m_prompts;
}

QSet<int> DataTableView::hiddenColumns() const
{
    QSet<int> hidden;
    if (horizontalHeader()->hiddenSectionCount() > 0) {
        for (int column = 0; column < m_model->columnCount(); ++column) {
            if (isColumnHidden(column)) {
                hidden.insert(column);
            }
        }
    }
    return hidden;
}

QVector<CellRange> DataTableView::selectedRanges() const
{
    const QSet<int> hidden = hiddenColumns();
    QVector<CellRange> ranges;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        int left = range.left();
        for (int column = left; column <= range.right() + 1; ++column) {
            if (column > range.right() || hidden.contains(column)) {
                if (left < column) {
                    ranges.append({range.top(), left, range.bottom(), column - 1});
                }
                left = column + 1;
            }
        }
    }
    return ranges;
}

bool DataTableView::isWholeColumnSelected(int column) const
{
    const QVector<CellRange> ranges = selectedRanges();
    return std::any_of(ranges.cbegin(), ranges.cend(), [&](const CellRange &range) {
        return range.left <= column && column <= range.right && range.bottom - range.top + 1 == m_model->rowCount();
    });
}

bool DataTableView::isWholeRowSelected(int row) const
{
    // The selection itself: columns that the filter hides don't make a row less whole.
    const QItemSelection selection = selectionModel()->selection();
    return std::any_of(selection.cbegin(), selection.cend(), [&](const QItemSelectionRange &range) {
        return range.top() <= row && row <= range.bottom() && range.width() == m_model->columnCount();
    });
}

QString DataTableView::selectionText() const
{
    return SelectionFigures(*m_model, selectedRanges(), StatusBar::mostCellsInStatistics).text();
}

void DataTableView::setWait(Wait wait)
{
    if (wait != m_wait) {
        m_wait = wait;
        viewport()->update();
    }
}

void DataTableView::setNoDataText(const QString &text)
{
    m_noDataText = text;
    viewport()->update();
}

QString DataTableView::emptyText() const
{
    switch (m_wait) {
    case Wait::AwaitingUpdate:
        return QStringLiteral("Awaiting update");
    case Wait::RunToUpdate:
        return QStringLiteral("Run to update");
    case Wait::Processing:
        return QStringLiteral("Processing...");
    case Wait::None:
        break;
    }
    if (m_model->isTooBig()) {
        return m_model->tooBigText();
    }
    if (m_model->columnCount() == 0) {
        return m_noDataText;
    }
    return m_model->rowCount() == 0 ? QStringLiteral("No rows") : QString();
}

void DataTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    const QString text = emptyText();
    if (!text.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, text);
    }
}

void DataTableView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected)
{
    QTableView::selectionChanged(selected, deselected);
    emit selectedDataCellsChanged();
}

void DataTableView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTableView::currentChanged(current, previous);
    const bool tells = current.isValid() && m_model->showsChanges();
    emit changeMessage(
        tells ? m_model->changeText(m_model->rowOf(current.row()), ColumnIndex(current.column())) : QString());
}

bool DataTableView::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        // These keys mean the table while it has the focus, not the window.
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll)) {
            event->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

void DataTableView::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy)) {
        onCopySelectedWithoutHeader();
        return;
    }
    const bool asksForMenu = event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier;
    if (asksForMenu && currentIndex().isValid()) {
        showCellMenu(currentIndex(), viewport()->mapToGlobal(visualRect(currentIndex()).center()));
        return;
    }
    QTableView::keyPressEvent(event);
}

void DataTableView::mousePressEvent(QMouseEvent *event)
{
    QTableView::mousePressEvent(event);
    showHint();
}

void DataTableView::showHint()
{
    if (m_hint == Hint::None || QToolTip::isVisible()) {
        return;
    }
    Tips::showOnce(QStringLiteral("click_data_pane"), QStringLiteral("The Data pane"),
        QStringLiteral("You can view a dataset in this pane, but you can't change it here.\nAdd Transform items to the "
                       "Center pane to transform your data."),
        tipMs, this);
    if (QToolTip::isVisible()) {
        return;
    }
    if (m_hint == Hint::Drilldown) {
        Tips::showOnce(QStringLiteral("tip_drilldown"), QStringLiteral("Drilldown"),
            QStringLiteral("Double click on a cell to drilldown to the original data.\nYou may need to check 'allow "
                           "drilldown' above."),
            tipMs, this);
    } else if (m_hint == Hint::Verification) {
        Tips::showOnce(QStringLiteral("tip_hover_verification"), QStringLiteral("Verification"),
            QStringLiteral("Hover over a cell for details on verification fails."), tipMs, this);
    }
}

void DataTableView::copy(CopiedHeader header)
{
    const TableSelection selection(selectedRanges());
    const bool hasRows = header != CopiedHeader::Only;
    if (selection.isEmpty()
        || (hasRows && !TableClipboard::confirm(prompts(), selection.rowCount(), selection.columnCount()))) {
        return;
    }
    TableClipboard::copy(selection.copied(*m_model, header));
}

void DataTableView::onCopySelectedWithHeader()
{
    copy(CopiedHeader::With);
}

void DataTableView::onCopySelectedWithoutHeader()
{
    copy(CopiedHeader::Without);
}

void DataTableView::onCopySelectedHeaderOnly()
{
    copy(CopiedHeader::Only);
}

void DataTableView::onVerticalHeaderDoubleClicked(int row)
{
    TableWindows::showRow(prompts(), *m_model, row);
}

void DataTableView::onHorizontalHeaderDoubleClicked(int col)
{
    TableWindows::showColumn(prompts(), *m_model, col);
}

void DataTableView::selectCells(const QModelIndex &first, const QModelIndex &last)
{
    // Whatever keys are held, which would make the view extend what is selected.
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
}

void DataTableView::addCopyActions(QMenu &menu, bool withHeaderOnly)
{
    menu.addAction(QStringLiteral("&Copy Selected With Header"), this, &DataTableView::onCopySelectedWithHeader);
    menu.addAction(QStringLiteral("Copy Selected &Without Header"), this, &DataTableView::onCopySelectedWithoutHeader);
    if (withHeaderOnly) {
        menu.addAction(QStringLiteral("Copy Selected &Header Only"), this, &DataTableView::onCopySelectedHeaderOnly);
    }
}

void DataTableView::onVerticalHeaderRightClicked(QPoint pos)
{
    const int row = verticalHeader()->logicalIndexAt(pos);
    if (row < 0) {
        return;
    }
    if (!isWholeRowSelected(row)) {
        selectCells(m_model->index(row, 0), m_model->index(row, m_model->columnCount() - 1));
    }
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QStringLiteral("Show &Row Values"), this, [this, row] {
        m_clickedRow = row;
        onShowRowData();
    });
    addCopyActions(*menu, true);
    menu->popup(verticalHeader()->mapToGlobal(pos));
}

void DataTableView::onHorizontalHeaderRightClicked(QPoint pos)
{
    const int column = horizontalHeader()->logicalIndexAt(pos);
    if (column < 0) {
        return;
    }
    if (!isWholeColumnSelected(column)) {
        selectCells(m_model->index(0, column), m_model->index(m_model->rowCount() - 1, column));
    }
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QStringLiteral("Show Column &Values"), this, [this, column] {
        m_clickedColumn = column;
        onShowColData();
    });
    addCopyActions(*menu, true);
    menu->popup(horizontalHeader()->mapToGlobal(pos));
}

void DataTableView::onShowRowData()
{
    const QVector<CellRange> selected = selectedRanges();
    int row = selected.isEmpty() ? 0 : selected.first().top;
    for (const CellRange &range : selected) {
        row = qMin(row, range.top);
    }
    row = m_clickedRow >= 0 ? m_clickedRow : row;
    m_clickedRow = -1;
    TableWindows::showRow(prompts(), *m_model, row);
}

void DataTableView::onShowColData()
{
    const QVector<CellRange> selected = selectedRanges();
    int column = selected.isEmpty() ? 0 : selected.first().left;
    for (const CellRange &range : selected) {
        column = qMin(column, range.left);
    }
    column = m_clickedColumn >= 0 ? m_clickedColumn : column;
    m_clickedColumn = -1;
    TableWindows::showColumn(prompts(), *m_model, column);
}

QString DataTableView::currentValue() const
{
    const QModelIndex index = currentIndex();
    return index.isValid() && m_model->rowOf(index.row()).isValid()
               ? m_model->dataset().value(m_model->rowOf(index.row()), ColumnIndex(index.column()))
               : QString();
}

void DataTableView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (index.isValid()) {
        showCellMenu(index, byKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
    }
}

void DataTableView::showCellMenu(const QModelIndex &index, const QPoint &place)
{
    if (!selectionModel()->isSelected(index)) {
        setCurrentIndex(index);
    } else {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    }
    const QString value = currentValue();
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QStringLiteral("&Drilldown..."), this, &DataTableView::onDrilldown)
        ->setEnabled(m_model->hasDrilldown(index));
    addCopyActions(*menu, false);
    if (m_hint != Hint::None) {
        menu->addAction(QStringLiteral("Filter on &row contains '%1'").arg(menuText(value)), this,
                &DataTableView::onFilterRowContains)
            ->setEnabled(!value.isEmpty());
        menu->addAction(QStringLiteral("&Filter on column contains '%1'").arg(menuText(value)), this,
                &DataTableView::onFilterColContains)
            ->setEnabled(!value.isEmpty());
    }
    menu->addAction(QStringLiteral("Show &Value..."), this, &DataTableView::onShowValue);
    menu->popup(place);
}

void DataTableView::onFilterRowContains()
{
    emit filterRowColContains(currentValue(), true);
}

void DataTableView::onFilterColContains()
{
    emit filterRowColContains(currentValue(), false);
}

void DataTableView::onHeaderSectionResized(int logicalIndex, int, int newSize)
{
    // Only what a person drags; hiding a column resizes it too.
    if (m_isResizing || newSize == 0 || !(QGuiApplication::mouseButtons() & Qt::LeftButton)
        || !isWholeColumnSelected(logicalIndex)) {
        return;
    }
    m_isResizing = true;
    for (const CellRange &range : selectedRanges()) {
        for (int column = range.left; column <= range.right; ++column) {
            if (column != logicalIndex && isWholeColumnSelected(column)) {
                setColumnWidth(column, newSize);
            }
        }
    }
    m_isResizing = false;
}

void DataTableView::onDoubleClicked(const QModelIndex &index)
{
    if (m_model->hasDrilldown(index)) {
        onDrilldown();
    }
}

void DataTableView::onDrilldown()
{
    TableWindows::showDrilldown(prompts(), *m_model, currentIndex());
}

void DataTableView::onShowValue()
{
    TableWindows::showValue(prompts(), *m_model, currentIndex());
}
