#include "app/batch/batchgrid.h"

#include "app/batch/batchgridmodel.h"
#include "app/batch/batchheader.h"
#include "app/batch/batchpathcell.h"

#include <QLineEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QToolButton>
#include <algorithm>

namespace {

constexpr int minimumColumnWidth = 400;
constexpr int minimumWidthInRun = 60;
constexpr int progressWidth = 160;
/// Rows above and below what is seen that have widgets too, so that Tab finds them.
constexpr int rowsBeyond = 2;

} // namespace

BatchGrid::BatchGrid(BatchGridModel &model, Prompts &prompts)
    : m_model(model)
    , m_prompts(prompts)
{
    setHorizontalHeader(new BatchHeader(this));
    setModel(&model);
    setAccessibleName(QStringLiteral("Batch rows"));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalHeader()->setMinimumSectionSize(minimumColumnWidth);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(QLineEdit().sizeHint().height() + 4);
    // Queued, since the model is in the middle of a change.
    const auto later = Qt::QueuedConnection;
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &BatchGrid::placeWidgets, later);
    connect(&model, &QAbstractItemModel::rowsInserted, this, &BatchGrid::placeWidgets, later);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &BatchGrid::placeWidgets, later);
    connect(&model, &QAbstractItemModel::columnsInserted, this, &BatchGrid::placeWidgets, later);
    connect(&model, &QAbstractItemModel::modelReset, this, &BatchGrid::placeWidgets, later);
    connect(&model, &QAbstractItemModel::dataChanged, this, &BatchGrid::onDataChanged);
    connect(this, &QAbstractItemView::activated, this, &BatchGrid::onActivated);
}

QList<int> BatchGrid::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows()) {
        rows.append(index.row());
    }
    return rows;
}

int BatchGrid::neededHeight() const
{
    const int rows = std::max(1, m_model.rowCount());
    return 2 * frameWidth() + horizontalHeader()->sizeHint().height()
           + std::min(rows, 1000) * verticalHeader()->defaultSectionSize()
           + (horizontalScrollBar()->isVisible() ? horizontalScrollBar()->height() : 0);
}

void BatchGrid::setProgressShown(bool on)
{
    QHeaderView *header = horizontalHeader();
    const int columns = m_model.columns().size();
    if (on) {
        m_widths.clear();
        for (int column = 0; column < columns; ++column) {
            m_widths.append(columnWidth(column));
        }
        header->setMinimumSectionSize(minimumWidthInRun);
    }
    m_model.setProgressShown(on);
    for (int column = 0; column < columns; ++column) {
        setColumnWidth(column, on ? (viewport()->width() - progressWidth) / columns : m_widths.value(column));
    }
    if (on) {
        setColumnWidth(columns, progressWidth);
    } else {
        header->setMinimumSectionSize(minimumColumnWidth);
    }
}

void BatchGrid::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fillWidth();
    placeWidgets();
}

void BatchGrid::updateGeometries()
{
    QTableView::updateGeometries();
    placeWidgets();
}

/// Columns share the width of the window, where that is more than they need.
void BatchGrid::fillWidth()
{
    const int columns = m_model.columns().size();
    if (m_model.isProgressShown() || columns == 0) {
        return;
    }
    const int share = std::max(minimumColumnWidth, viewport()->width() / columns);
    for (int column = 0; column < columns; ++column) {
        setColumnWidth(column, share);
    }
}

void BatchGrid::placeWidgets()
{
    const int rows = m_model.rowCount();
    const int top = rowAt(0);
    const int bottom = rowAt(viewport()->height() - 1);
    const int first = std::max(0, (top < 0 ? 0 : top) - rowsBeyond);
    const int last = std::min(rows - 1, bottom < 0 ? rows - 1 : bottom + rowsBeyond);
    dropWidgets(first, last);
    for (int row = first; row <= last && top >= 0; ++row) {
        placeRow(row);
    }
    orderForTab(first, last);
}

/// Widgets that are made later come behind the whole window, so each takes its place behind the one before.
void BatchGrid::orderForTab(int firstRow, int lastRow)
{
    QWidget *previous = this;
    for (int row = firstRow; row <= lastRow; ++row) {
        for (int column = 0; column < m_model.columns().size(); ++column) {
            if (auto *cell = qobject_cast<BatchPathCell *>(indexWidget(m_model.index(row, column)))) {
                setTabOrder(previous, cell->edit());
                setTabOrder(cell->edit(), cell->button());
                previous = cell->button();
            }
        }
    }
}

void BatchGrid::onActivated(const QModelIndex &index)
{
    if (QWidget *cell = indexWidget(index)) {
        cell->setFocus();
    }
}

void BatchGrid::dropWidgets(int firstRow, int lastRow)
{
    const auto isDropped = [&](const QPersistentModelIndex &index) {
        if (!index.isValid()) {
            return true;
        }
        QWidget *widget = indexWidget(index);
        const bool isFar = index.row() < firstRow || index.row() > lastRow;
        if (widget && isFar && !widget->isAncestorOf(focusWidget())) {
            setIndexWidget(index, nullptr);
            return true;
        }
        return !widget;
    };
    m_placed.erase(std::remove_if(m_placed.begin(), m_placed.end(), isDropped), m_placed.end());
}

void BatchGrid::placeRow(int row)
{
    for (int column = 0; column < m_model.columnCount(); ++column) {
        const QModelIndex index = m_model.index(row, column);
        if (indexWidget(index)) {
            continue;
        }
        if (m_model.isProgress(index)) {
            setIndexWidget(index, makeProgressBar(row));
        } else if (m_model.takesPath(index)) {
            setIndexWidget(index, makeCell(index));
        } else {
            continue;
        }
        m_placed.append(index);
    }
}

QWidget *BatchGrid::makeCell(const QModelIndex &index)
{
    const QPersistentModelIndex place(index);
    auto *cell = new BatchPathCell(
        m_model.columns().at(index.column()), index.row(), m_model.data(index, Qt::DisplayRole).toString(), m_prompts);
    connect(cell, &BatchPathCell::textChanged, this, [this, place](const QString &text) {
        if (place.isValid()) {
            m_model.setText(place, text);
            emit pathEdited();
        }
    });
    connect(cell, &BatchPathCell::entered, this, [this, place] {
        if (place.isValid()) {
            selectionModel()->setCurrentIndex(place, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        }
    });
    return cell;
}

QWidget *BatchGrid::makeProgressBar(int row) const
{
    auto *bar = new QProgressBar;
    bar->setRange(0, 100);
    bar->setValue(m_model.progress(row));
    bar->setAccessibleName(QStringLiteral("Progress of row %1").arg(row + 1));
    // The grid is disabled while this shows, which needn't make it grey.
    QPalette colors = bar->palette();
    for (const QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText, QPalette::Text}) {
        colors.setColor(QPalette::Disabled, role, colors.color(QPalette::Active, role));
    }
    bar->setPalette(colors);
    return bar;
}

void BatchGrid::onDataChanged(const QModelIndex &first)
{
    if (m_model.isProgress(first)) {
        if (auto *bar = qobject_cast<QProgressBar *>(indexWidget(first))) {
            bar->setValue(m_model.progress(first.row()));
        } else {
            scrollTo(first);
        }
    }
}
