#pragma once

#include "app/batch/batchcolumns.h"
#include "document/batchsettings.h"

#include <QAbstractTableModel>
#include <QVector>

/// The grid of a batch: a row of paths for each column, and how far each row has been run while a batch runs.
class BatchGridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit BatchGridModel(const QList<BatchColumn> &columns, QObject *parent = nullptr);

    const QList<BatchColumn> &columns() const { return m_columns; }
    /// Rows from a document; values of aliases that have no column are kept.
    void setValues(const QMap<QPair<int, QString>, QString> &values);
    QMap<QPair<int, QString>, QString> values() const;

    /// The first row takes the paths of the items, each later one those of the row above.
    void addRow();
    void removeRows(QList<int> rows);
    void clear();
    void setText(const QModelIndex &index, const QString &text);

    /// False for a cell that has no use for a path.
    bool takesPath(const QModelIndex &index) const;
    bool isProgress(const QModelIndex &index) const { return index.column() == m_columns.size(); }
    /// Adds the column of progress, or takes it away.
    void setProgressShown(bool on);
    bool isProgressShown() const { return m_progressShown; }
    void setProgress(int row, int percent);
    int progress(int row) const { return m_progress.value(row); }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    using Row = QMap<QString, QString>; ///< by alias

    QVariant headerText(int section, Qt::Orientation orientation) const;
    QVariant cellText(const QModelIndex &index) const;

    const QList<BatchColumn> m_columns;
    QVector<Row> m_rows;
    QVector<int> m_progress;
    bool m_progressShown = false;
};
