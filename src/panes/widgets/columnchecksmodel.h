#pragma once

#include "panes/widgets/columnlist.h"

#include <QAbstractListModel>
#include <QSet>

/// Columns with a check mark each.
class ColumnChecksModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit ColumnChecksModel(QObject *parent = nullptr);

    void setColumns(const ColumnList &columns);
    const ColumnList &columns() const { return m_columns; }
    /// Emits no edit.
    void setChecked(const QList<ColumnId> &ids);
    const QSet<ColumnId> &checked() const { return m_checked; }
    /// The checked columns that are there, in the table's order.
    QList<ColumnId> checkedInOrder() const;
    /// Checks or unchecks rows, as one edit.
    void check(const QVector<int> &rows, bool on);
    void invert(const QVector<int> &rows);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    /// A person has checked or unchecked something.
    void edited();

private:
    void tellAllChanged();

    ColumnList m_columns;
    QSet<ColumnId> m_checked; ///< also such as aren't there at present
};
