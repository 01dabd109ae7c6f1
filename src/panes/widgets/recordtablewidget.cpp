#include "panes/widgets/recordtablewidget.h"

#include "panes/widgets/delimitedlines.h"
#include "panes/widgets/recorddelegate.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>

namespace {

constexpr int rowsHinted = 4;
constexpr int leastWidth = 160;
constexpr int cellPadding = 6;

} // namespace

RecordTableWidget::RecordTableWidget(QWidget *parent)
    : QTableWidget(parent)
    , m_delegate(new RecordDelegate(this))
{
    setItemDelegate(m_delegate);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(
        QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    setTabKeyNavigation(false);
    setDragDropMode(QAbstractItemView::InternalMove);
    setDragDropOverwriteMode(false);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2 * cellPadding);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(this, &QTableWidget::cellChanged, this, &RecordTableWidget::onCellChanged);
    connect(this, &QTableWidget::cellClicked, this, &RecordTableWidget::onCellClicked);
    connect(this, &QTableWidget::itemSelectionChanged, this, &RecordTableWidget::userInteraction);
}

void RecordTableWidget::setFields(const QVector<RecordField> &fields, const Record &newRecord)
{
    m_fields = fields;
    m_newRecord = newRecord;
    m_delegate->setFields(fields);
    setColumnCount(fields.size());
    for (int column = 0; column < fields.size(); ++column) {
        auto *title = new QTableWidgetItem(fields.at(column).title);
        title->setToolTip(fields.at(column).toolTip);
        setHorizontalHeaderItem(column, title);
        if (fields.at(column).kind == RecordField::Flag) {
            horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
        }
    }
}

void RecordTableWidget::setColumns(const ColumnList &columns)
{
    if (columns != m_delegate->columns()) {
        m_delegate->setColumns(columns);
        setRecords(records());
    }
}

void RecordTableWidget::setRow(int row, const Record &record)
{
    for (int column = 0; column < m_fields.size(); ++column) {
        QTableWidgetItem *cell = item(row, column);
        if (!cell) {
            cell = new QTableWidgetItem;
            setItem(row, column, cell);
        }
        const RecordField &field = m_fields.at(column);
        cell->setData(Qt::UserRole, record.value(column));
        cell->setText(m_delegate->textOf(column, record.value(column)));
        cell->setToolTip(field.toolTip.isEmpty() ? cell->text() : field.toolTip);
        Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        flags.setFlag(Qt::ItemIsEditable, field.kind != RecordField::Label && field.kind != RecordField::Flag);
        flags.setFlag(Qt::ItemIsUserCheckable, field.kind == RecordField::Flag);
        if (field.kind == RecordField::Flag) {
            cell->setCheckState(record.value(column).toBool() ? Qt::Checked : Qt::Unchecked);
        }
        flags.setFlag(Qt::ItemIsDragEnabled, m_isMovable);
        flags.setFlag(Qt::ItemIsDropEnabled, m_isMovable);
        cell->setFlags(flags);
    }
}

void RecordTableWidget::setRecords(const QVector<Record> &records)
{
    const QSignalBlocker blocker(this);
    setRowCount(records.size());
    for (int row = 0; row < records.size(); ++row) {
        setRow(row, records.at(row));
    }
    viewport()->update();
}

QVector<RecordTableWidget::Record> RecordTableWidget::records() const
{
    QVector<Record> records;
    records.reserve(rowCount());
    for (int row = 0; row < rowCount(); ++row) {
        Record record;
        for (int column = 0; column < m_fields.size(); ++column) {
            record.append(item(row, column)->data(Qt::UserRole));
        }
        records.append(record);
    }
    return records;
}

QList<int> RecordTableWidget::selectedRows() const
{
    QSet<int> rows;
    for (const QModelIndex &index : selectedIndexes()) {
        rows.insert(index.row());
    }
    if (rows.isEmpty() && currentRow() >= 0) {
        rows.insert(currentRow());
    }
    QList<int> sorted(rows.cbegin(), rows.cend());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

void RecordTableWidget::replaceRecords(const QVector<Record> &records, const QList<int> &selected)
{
    const int column = qMax(0, currentColumn());
    setRecords(records);
    clearSelection();
    if (!selected.isEmpty()) {
        setCurrentCell(selected.first(), column, QItemSelectionModel::NoUpdate);
    }
    for (const int row : selected) {
        selectionModel()->select(model()->index(row, column), QItemSelectionModel::Select);
    }
    emit edited();
}

void RecordTableWidget::addRecord()
{
    if (m_isFixed) {
        return;
    }
    QVector<Record> all = records();
    const int row = currentRow() >= 0 && currentRow() < all.size() ? currentRow() + 1 : all.size();
    all.insert(row, m_newRecord);
    replaceRecords(all, {row});
    setCurrentCell(row, 0);
    setFocus();
}

void RecordTableWidget::removeSelected()
{
    const QList<int> rows = selectedRows();
    if (m_isFixed || rows.isEmpty()) {
        return;
    }
    QVector<Record> all = records();
    for (int i = rows.size() - 1; i >= 0; --i) {
        all.remove(rows.at(i));
    }
    const int next = qMin(rows.first(), all.size() - 1);
    replaceRecords(all, next >= 0 ? QList<int>{next} : QList<int>());
}

void RecordTableWidget::duplicateSelected()
{
    const QList<int> rows = selectedRows();
    if (m_isFixed || rows.isEmpty()) {
        return;
    }
    QVector<Record> all = records();
    QList<int> copies;
    int place = rows.last() + 1;
    for (const int row : rows) {
        const Record copy = all.at(row);
        all.insert(place, copy);
        copies.append(place++);
    }
    replaceRecords(all, copies);
}

void RecordTableWidget::moveSelected(int step)
{
    QList<int> rows = selectedRows();
    QVector<Record> all = records();
    if (!m_isMovable || rows.isEmpty() || rows.first() + step < 0 || rows.last() + step >= all.size()) {
        return;
    }
    if (step > 0) {
        std::reverse(rows.begin(), rows.end());
    }
    for (int &row : rows) {
        all.move(row, row + step);
        row += step;
    }
    replaceRecords(all, rows);
}

void RecordTableWidget::moveToTop()
{
    const QList<int> rows = selectedRows();
    if (m_isMovable && !rows.isEmpty()) {
        QVector<Record> all = records();
        QList<int> places;
        for (int i = 0; i < rows.size(); ++i) {
            all.move(rows.at(i), i);
            places.append(i);
        }
        replaceRecords(all, places);
    }
}

void RecordTableWidget::moveToBottom()
{
    const QList<int> rows = selectedRows();
    if (m_isMovable && !rows.isEmpty()) {
        QVector<Record> all = records();
        QList<int> places;
        for (int i = rows.size() - 1; i >= 0; --i) {
            const int place = all.size() - rows.size() + i;
            all.move(rows.at(i), place);
            places.prepend(place);
        }
        replaceRecords(all, places);
    }
}

void RecordTableWidget::removeAll()
{
    if (!m_isFixed && rowCount() > 0) {
        replaceRecords({}, {});
    }
}

QVector<QStringList> RecordTableWidget::shownTexts() const
{
    QVector<QStringList> lines;
    for (int row = 0; row < rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < columnCount(); ++column) {
            if (!isColumnHidden(column)) {
                cells.append(item(row, column)->text());
            }
        }
        lines.append(cells);
    }
    return lines;
}

void RecordTableWidget::copyRecords()
{
    QApplication::clipboard()->setText(DelimitedLines::toClipboardText(shownTexts()));
}

RecordTableWidget::Record RecordTableWidget::recordOf(const QStringList &cells) const
{
    Record record = m_newRecord;
    for (int column = 0; column < m_fields.size() && column < cells.size(); ++column) {
        const RecordField &field = m_fields.at(column);
        const QString cell = cells.at(column);
        if (field.kind == RecordField::Choice) {
            const int choice = field.choices.indexOf(cell);
            record[column] = choice >= 0 ? QVariant(choice) : m_newRecord.at(column);
        } else if (field.kind == RecordField::Column) {
            const int found = m_delegate->columns().names.indexOf(cell);
            record[column] = QVariant::fromValue(m_delegate->columns().ids.value(found));
        } else {
            record[column] = cell;
        }
    }
    return record;
}

void RecordTableWidget::pasteRecords()
{
    appendLines(DelimitedLines::fromClipboardText(QApplication::clipboard()->text()));
}

void RecordTableWidget::appendLines(const QVector<QStringList> &lines)
{
    QVector<Record> all = records();
    QList<int> added;
    for (const QStringList &cells : lines) {
        added.append(all.size());
        all.append(recordOf(cells));
    }
    if (!added.isEmpty()) {
        replaceRecords(all, added);
    }
}

void RecordTableWidget::onCellChanged(int row, int column)
{
    QTableWidgetItem *cell = item(row, column);
    if (m_fields.at(column).kind == RecordField::Flag) {
        const QSignalBlocker blocker(this);
        cell->setData(Qt::UserRole, cell->checkState() == Qt::Checked);
    }
    const QString shown = m_delegate->textOf(column, cell->data(Qt::UserRole));
    if (cell->text() != shown) {
        const QSignalBlocker blocker(this);
        item(row, column)->setText(shown);
    }
    emit edited();
}

void RecordTableWidget::onCellClicked(int row, int column)
{
    const RecordField::Kind kind = m_fields.at(column).kind;
    const bool chosen = kind == RecordField::Choice || kind == RecordField::Column;
    const bool editable = item(row, column)->flags() & Qt::ItemIsEditable;
    if (chosen && editable && selectedIndexes().size() <= 1 && QApplication::keyboardModifiers() == Qt::NoModifier) {
        editItem(item(row, column));
    }
}

void RecordTableWidget::keyPressEvent(QKeyEvent *event)
{
    const bool alt = event->modifiers() == Qt::AltModifier;
    switch (event->key()) {
    case Qt::Key_Insert:
        addRecord();
        return;
    case Qt::Key_Delete:
        removeSelected();
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (alt) {
            moveSelected(event->key() == Qt::Key_Up ? -1 : 1);
            return;
        }
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (state() != EditingState && currentItem()) {
            if (currentItem()->flags() & Qt::ItemIsUserCheckable) {
                currentItem()->setCheckState(currentItem()->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
            } else if (currentItem()->flags() & Qt::ItemIsEditable) {
                editItem(currentItem());
            }
            return;
        }
        break;
    default:
        break;
    }
    if (!m_isFixed && event->matches(QKeySequence::Paste)) {
        pasteRecords();
        return;
    }
    if (event->matches(QKeySequence::Copy)) {
        copyRecords();
        return;
    }
    QTableWidget::keyPressEvent(event);
}

void RecordTableWidget::dropEvent(QDropEvent *event)
{
    if (event->source() != this) {
        return;
    }
    const QModelIndex target = indexAt(event->pos());
    const QList<int> rows = selectedRows();
    QVector<Record> all = records();
    int place = target.isValid() ? target.row() : all.size();
    if (target.isValid() && event->pos().y() > visualRect(target).center().y()) {
        ++place;
    }
    QVector<Record> moved;
    for (int i = rows.size() - 1; i >= 0; --i) {
        moved.prepend(all.takeAt(rows.at(i)));
        place -= rows.at(i) < place ? 1 : 0;
    }
    QList<int> places;
    for (const Record &record : qAsConst(moved)) {
        places.append(place);
        all.insert(place++, record);
    }
    // The view would remove what it believes to have been moved away.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    replaceRecords(all, places);
}

QSize RecordTableWidget::sizeHint() const
{
    const int rows = qMax(rowsHinted, qMin(2 * rowsHinted, rowCount()));
    return {leastWidth, horizontalHeader()->sizeHint().height() + rows * verticalHeader()->defaultSectionSize()};
}

void RecordTableWidget::paintEvent(QPaintEvent *event)
{
    QTableWidget::paintEvent(event);
    if (rowCount() == 0 && !m_emptyText.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
    }
    if (m_paintOverlay) {
        m_paintOverlay(*viewport());
    }
}
