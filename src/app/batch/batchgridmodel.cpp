#include "app/batch/batchgridmodel.h"

#include "data/values.h"
#include "graph/colors.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

BatchGridModel::BatchGridModel(const QList<BatchColumn> &columns, QObject *parent)
    : QAbstractTableModel(parent)
    , m_columns(columns)
{
}

void BatchGridModel::setValues(const QMap<QPair<int, QString>, QString> &values)
{
    beginResetModel();
    m_rows = QVector<Row>(values.isEmpty() ? 0 : values.lastKey().first + 1);
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        m_rows[it.key().first].insert(it.key().second, it.value());
    }
    endResetModel();
}

QMap<QPair<int, QString>, QString> BatchGridModel::values() const
{
    QMap<QPair<int, QString>, QString> values;
    for (int row = 0; row < m_rows.size(); ++row) {
        for (auto it = m_rows.at(row).cbegin(); it != m_rows.at(row).cend(); ++it) {
            if (!it.value().isEmpty()) {
                values.insert({row, it.key()}, it.value());
            }
        }
    }
    return values;
}

void BatchGridModel::addRow()
{
    if (m_rows.size() >= BatchSettings::maxRows) {
        return;
    }
    Row row;
    if (m_rows.isEmpty()) {
        for (const BatchColumn &column : m_columns) {
            row.insert(column.alias, column.ownPath);
        }
    } else {
        row = m_rows.last();
    }
    beginInsertRows({}, m_rows.size(), m_rows.size());
    m_rows.append(row);
    endInsertRows();
}

void BatchGridModel::removeRows(QList<int> rows)
{
    std::sort(rows.begin(), rows.end());
    for (int i = rows.size() - 1; i >= 0; --i) {
        beginRemoveRows({}, rows.at(i), rows.at(i));
        m_rows.remove(rows.at(i));
        endRemoveRows();
    }
}

void BatchGridModel::clear()
{
    beginResetModel();
    m_rows.clear();
    endResetModel();
}

void BatchGridModel::setText(const QModelIndex &index, const QString &text)
{
    m_rows[index.row()].insert(m_columns.at(index.column()).alias, text);
    emit dataChanged(index, index);
}

bool BatchGridModel::takesPath(const QModelIndex &index) const
{
    return index.isValid() && !isProgress(index) && m_columns.at(index.column()).takesPath;
}

void BatchGridModel::setProgressShown(bool on)
{
    if (on == m_progressShown) {
        return;
    }
    m_progress.fill(0, m_rows.size());
    if (on) {
        beginInsertColumns({}, m_columns.size(), m_columns.size());
    } else {
        beginRemoveColumns({}, m_columns.size(), m_columns.size());
    }
    m_progressShown = on;
    on ? endInsertColumns() : endRemoveColumns();
}

void BatchGridModel::setProgress(int row, int percent)
{
    if (m_progressShown && m_progress.at(row) != percent) {
        m_progress[row] = percent;
        const QModelIndex changed = index(row, m_columns.size());
        emit dataChanged(changed, changed);
    }
}

int BatchGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int BatchGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_columns.size() + (m_progressShown ? 1 : 0);
}

QVariant BatchGridModel::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return cellText(index);
    case Qt::BackgroundRole:
        return takesPath(index) || isProgress(index)
                   ? QVariant()
                   : QVariant(QGuiApplication::palette().color(QPalette::Disabled, QPalette::Window));
    case Qt::ForegroundRole:
        return takesPath(index) ? QVariant()
                                : QVariant(QGuiApplication::palette().color(QPalette::Disabled, QPalette::Text));
    default:
        return QVariant();
    }
}

QVariant BatchGridModel::cellText(const QModelIndex &index) const
{
    if (isProgress(index)) {
        return QStringLiteral("%1%").arg(progress(index.row()));
    }
    return takesPath(index) ? m_rows.at(index.row()).value(m_columns.at(index.column()).alias)
                            : QStringLiteral("Files are named by a column");
}

QVariant BatchGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return headerText(section, orientation);
    }
    if (orientation == Qt::Vertical || section >= m_columns.size()) {
        return QVariant();
    }
    const bool isInput = m_columns.at(section).kind == CommandLineItem::Input;
    if (role == Qt::BackgroundRole) {
        return Colors::current().color(isInput ? Colors::InputBox : Colors::OutputBox);
    }
    return role == Qt::ForegroundRole
               ? QVariant(Colors::current().color(isInput ? Colors::InputText : Colors::OutputText))
               : QVariant();
}

QVariant BatchGridModel::headerText(int section, Qt::Orientation orientation) const
{
    if (orientation == Qt::Vertical) {
        return formatInteger(section + 1, true);
    }
    return section < m_columns.size() ? m_columns.at(section).header : QStringLiteral("Progress");
}

Qt::ItemFlags BatchGridModel::flags(const QModelIndex &) const
{
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}
