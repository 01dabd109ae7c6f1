#include "panes/table/datatablemodel.h"

#include "data/numberreader.h"
#include "data/values.h"
#include "data/whitespacemarks.h"
#include "panes/widgets/textcolor.h"
#include "panes/widgets/tips.h"
#include "settings/settingkey.h"
#include "settings/settings.h"
#include "settings/settingsnotifier.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

namespace {

// A view lays out the whole of what it is given, so a cell of megabytes would hold it up; nobody sees that much of one.
constexpr int longestDisplay = 10000;
constexpr int longestName = 1000;
constexpr int longestTip = 100;
constexpr int longestChange = 50;
constexpr double highlightStrength = 0.2;

/// The beginning of a text, with at least `units` UTF-16 units or all of them.
QString beginning(const Cell &cell, int units)
{
    constexpr int mostBytesOfUnit = 3;
    int size = mostBytesOfUnit * (units + 1);
    if (cell.size() <= size) {
        return cell.text();
    }
    const auto isInsideCharacter = [](char byte) { return (static_cast<uchar>(byte) & 0xC0) == 0x80; };
    while (isInsideCharacter(cell.bytes()[size])) {
        --size;
    }
    return TextCoding::decode(cell.bytes(), size);
}

} // namespace

DataTableModel::DataTableModel(QObject *parent)
    : QAbstractTableModel(parent)
{
    readColors();
    connect(&Settings::current().notifier(), &SettingsNotifier::changed, this, [this](const QString &key) {
        if (key == SettingKey::changedDataColor || key == SettingKey::verifyFailErrorColor
            || key == SettingKey::verifyFailWarningColor || key == SettingKey::verifyFailInfoColor
            || key == SettingKey::uiTheme) {
            readColors();
            updateLook();
        }
    });
}

void DataTableModel::readColors()
{
    const Settings &settings = Settings::current();
    m_changedBrush = settings.changedDataColor();
    m_issueBrushes = {
        settings.verifyFailInfoColor(), settings.verifyFailWarningColor(), settings.verifyFailErrorColor()};
    QColor highlight = QGuiApplication::palette().color(QPalette::Highlight);
    highlight.setAlphaF(highlightStrength);
    m_highlightBrush = highlight;
}

void DataTableModel::setDataset(const Dataset &dataset, const Dataset &previous)
{
    if (dataset.hasIssues()) {
        // Looking up puts millions of issues in order; asked here, the original has that done for all its copies.
        dataset.issueLevel(RowIndex(0), ColumnIndex(0));
    }
    beginResetModel();
    m_dataset = dataset;
    m_previous = previous;
    m_drilldownSource.clear();
    m_shownRows.clear();
    m_filtered = false;
    m_isMarked = nullptr;
    m_highlightRows.clear();
    findColumns();
    endResetModel();
}

void DataTableModel::clear()
{
    setDataset(Dataset());
}

void DataTableModel::findColumns()
{
    m_columnMap.clear();
    m_changedColumns.clear();
    if (!m_previous.hasColumns() || isTooBig()) {
        return;
    }
    // Without a header the name is the position, which isn't a column's own.
    const bool named = m_previous.hasHeader() && m_dataset.hasHeader();
    for (int column = 0; column < m_dataset.columnCount(); ++column) {
        const ColumnIndex previous = m_previous.columnIndexOfId(m_dataset.columnId(ColumnIndex(column)));
        if (previous.isValid()) {
            m_columnMap.insert(column, previous.toInt());
        }
        if (!previous.isValid()
            || (named && m_previous.columnName(previous) != m_dataset.columnName(ColumnIndex(column)))) {
            m_changedColumns.insert(column);
        }
    }
}

QString DataTableModel::tooBigText() const
{
    if (!isTooBig()) {
        return QString();
    }
    const QString size = QStringLiteral("%1 cols x %2 rows is too big to display")
                             .arg(formatInteger(m_dataset.columnCount(), true),
                                 formatInteger(m_dataset.rowCount(), true));
    return m_dataset.columnCount() > mostColumns
               ? size
                     + QStringLiteral("\n\nUse a 'Remove Cols' transform to reduce to <=%1 columns")
                           .arg(formatInteger(mostColumns, true))
               : size
                     + QStringLiteral("\n\nUse a 'Sample' transform to reduce to <=%1 rows")
                           .arg(formatInteger(mostRows, true));
}

void DataTableModel::setShowChanges(bool on)
{
    if (m_showChanges != on) {
        m_showChanges = on;
        updateLook();
    }
}

void DataTableModel::setShowWhitespace(bool on)
{
    if (m_showWhitespace != on) {
        m_showWhitespace = on;
        updateLook();
    }
}

void DataTableModel::setVerification(bool on)
{
    if (m_verification != on) {
        m_verification = on;
        updateLook();
    }
}

void DataTableModel::setHighlightColumns(const QSet<int> &columns)
{
    if (m_highlightColumns != columns) {
        m_highlightColumns = columns;
        updateLook();
    }
}

void DataTableModel::setHighlightRows(const std::vector<bool> &rows)
{
    m_highlightRows = rows;
    updateLook();
}

void DataTableModel::updateLook()
{
    if (rowCount() > 0 && columnCount() > 0) {
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        emit headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
    }
    if (columnCount() > 0) {
        emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    }
}

void DataTableModel::setShownRows(const QVector<int> &rows)
{
    beginResetModel();
    m_shownRows = rows;
    m_filtered = true;
    endResetModel();
}

void DataTableModel::setArrangedRows(const QVector<int> &rows,
    const std::function<bool(int modelRow, ColumnIndex column)> &isMarked, const QColor &color)
{
    m_isMarked = isMarked;
    m_markColor = color;
    setShownRows(rows);
}

void DataTableModel::showAllRows()
{
    if (m_filtered) {
        beginResetModel();
        m_shownRows.clear();
        m_filtered = false;
        endResetModel();
    }
}

RowIndex DataTableModel::rowOf(int modelRow) const
{
    return RowIndex(m_filtered ? m_shownRows.at(modelRow) : modelRow);
}

int DataTableModel::modelRowOf(RowIndex row) const
{
    if (!m_filtered) {
        return row.toInt();
    }
    const auto found = std::lower_bound(m_shownRows.cbegin(), m_shownRows.cend(), row.toInt());
    return found != m_shownRows.cend() && *found == row.toInt() ? static_cast<int>(found - m_shownRows.cbegin()) : -1;
}

const Cell *DataTableModel::previousCell(RowIndex row, ColumnIndex column) const
{
    const auto previous = m_columnMap.constFind(column.toInt());
    return previous == m_columnMap.cend() || row.toInt() >= m_previous.rowCount()
               ? nullptr
               : &m_previous.cell(row, ColumnIndex(*previous));
}

const CellColumn *DataTableModel::previousColumn(ColumnIndex column) const
{
    const auto previous = m_columnMap.constFind(column.toInt());
    return previous == m_columnMap.cend() ? nullptr : &m_previous.column(ColumnIndex(*previous));
}

bool DataTableModel::isChanged(RowIndex row, ColumnIndex column) const
{
    if (m_changedColumns.contains(column.toInt())) {
        return true;
    }
    const Cell *previous = previousCell(row, column);
    return previous && !previous->sameText(m_dataset.cell(row, column));
}

int DataTableModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid() || isTooBig()) {
        return 0;
    }
    return m_filtered ? m_shownRows.size() : m_dataset.rowCount();
}

int DataTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() || isTooBig() ? 0 : m_dataset.columnCount();
}

QVariant DataTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount()) {
        return QVariant();
    }
    const RowIndex row = rowOf(index.row());
    const ColumnIndex column(index.column());
    const QVariant look = markedLook(index, role);
    if (look.isValid() || !row.isValid()) {
        return look;
    }
    switch (role) {
    case Qt::DisplayRole:
        return shownText(m_dataset.cell(row, column), longestDisplay);
    case Qt::ToolTipRole:
        return Tips::plain(toolTip(row, column));
    case Qt::TextAlignmentRole: {
        bool isNumber = false;
        NumberReader(false, false).read(m_dataset.cell(row, column), &isNumber);
        return int((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    case Qt::BackgroundRole:
        return background(row, column);
    default:
        return QVariant();
    }
}

QVariant DataTableModel::markedLook(const QModelIndex &index, int role) const
{
    if ((role != Qt::BackgroundRole && role != Qt::ForegroundRole) || !m_isMarked
        || !m_isMarked(index.row(), ColumnIndex(index.column()))) {
        return QVariant();
    }
    return QBrush(role == Qt::BackgroundRole ? m_markColor : textColorOn(m_markColor));
}

QString DataTableModel::shownText(const Cell &cell, int limit) const
{
    const QString text = ellipsized(beginning(cell, limit + 1), limit);
    return m_showWhitespace ? withWhiteSpaceMarks(text) : text;
}

QString DataTableModel::toolTip(RowIndex row, ColumnIndex column) const
{
    if (m_verification && m_dataset.issueLevel(row, column) < DatasetIssues::noLevel) {
        return m_dataset.issueText(row, column);
    }
    const QString change = m_showChanges ? changeText(row, column) : QString();
    return change.isEmpty() ? shownText(m_dataset.cell(row, column), longestTip) : change;
}

QString DataTableModel::changeText(RowIndex row, ColumnIndex column) const
{
    const Cell &cell = m_dataset.cell(row, column);
    const Cell *previous = previousCell(row, column);
    return previous && !previous->sameText(cell)
               ? QStringLiteral("'%1' -> '%2'").arg(shownText(*previous, longestChange), shownText(cell, longestChange))
               : QString();
}

void DataTableModel::setDrilldownSource(const Dataset &source)
{
    m_drilldownSource = source;
}

QVector<int> DataTableModel::drilldownRows(const QModelIndex &index) const
{
    QVector<int> rows;
    if (index.isValid() && m_dataset.hasDrilldown() && rowOf(index.row()).isValid()) {
        for (const RowIndex row : m_dataset.drilldownRows(rowOf(index.row()), ColumnIndex(index.column()))) {
            if (row.toInt() < m_drilldownSource.rowCount()) {
                rows.append(row.toInt());
            }
        }
    }
    return rows;
}

bool DataTableModel::hasDrilldown(const QModelIndex &index) const
{
    return !drilldownRows(index).isEmpty();
}

Dataset DataTableModel::drilldown(const QModelIndex &index) const
{
    return m_drilldownSource.withRows(drilldownRows(index));
}

QVariant DataTableModel::issueBrush(RowIndex row, ColumnIndex column) const
{
    const int level = m_verification ? m_dataset.issueLevel(row, column) : DatasetIssues::noLevel;
    return level >= 0 && level < DatasetIssues::noLevel ? QVariant(m_issueBrushes[static_cast<size_t>(level)])
                                                        : QVariant();
}

QVariant DataTableModel::background(RowIndex row, ColumnIndex column) const
{
    const QVariant ofIssue = issueBrush(row, column);
    if (ofIssue.isValid()) {
        return ofIssue;
    }
    const auto place = static_cast<size_t>(row.toInt());
    if (m_highlightColumns.contains(column.toInt()) || (place < m_highlightRows.size() && m_highlightRows[place])) {
        return m_highlightBrush;
    }
    return m_showChanges && isChanged(row, column) ? QVariant(m_changedBrush) : QVariant();
}

QVariant DataTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section < 0 || section >= (orientation == Qt::Horizontal ? columnCount() : rowCount())) {
        return QVariant();
    }
    return orientation == Qt::Horizontal ? columnHeader(ColumnIndex(section), role) : rowHeader(rowOf(section), role);
}

QString DataTableModel::withIssues(const QString &tip, RowIndex row, ColumnIndex column) const
{
    if (!m_verification || m_dataset.issueLevel(row, column) >= DatasetIssues::noLevel) {
        return tip;
    }
    return tip.isEmpty() ? m_dataset.issueText(row, column)
                         : tip + QLatin1Char('\n') + m_dataset.issueText(row, column);
}

QVariant DataTableModel::columnHeader(ColumnIndex column, int role) const
{
    const QString name = ellipsized(m_dataset.columnName(column), longestName);
    switch (role) {
    case Qt::DisplayRole:
        return name;
    case Qt::ToolTipRole: {
        const QString number = QString::number(toNumber(column).toInt());
        return Tips::plain(withIssues(QStringLiteral("%1 (column %2)").arg(name, number), RowIndex(), column));
    }
    case Qt::BackgroundRole:
        return issueBrush(RowIndex(), column);
    default:
        return QVariant();
    }
}

QVariant DataTableModel::rowHeader(RowIndex row, int role) const
{
    if (!row.isValid()) {
        return role == Qt::DisplayRole ? QVariant(QString()) : QVariant();
    }
    switch (role) {
    case Qt::DisplayRole:
        return row.toInt() + 1;
    case Qt::ToolTipRole:
        return Tips::plain(withIssues(QString(), row, ColumnIndex()));
    case Qt::BackgroundRole:
        return issueBrush(row, ColumnIndex());
    default:
        return QVariant();
    }
}
