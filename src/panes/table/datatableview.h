#pragma once

#include <QTableView>

class DataTableModel;

/// A table with its rows and columns as a DataTableModel shows them, and a word on why there is nothing to see.
class DataTableView : public QTableView
{
    Q_OBJECT

public:
    /// Why there may be no table; a table that is too big or empty tells that by itself.
    enum class Wait { None, AwaitingUpdate, RunToUpdate, Processing };

    explicit DataTableView(QWidget *parent = nullptr);

    DataTableModel &table() const { return *m_model; }
    void setWait(Wait wait);
    /// What stands in place of a table without columns; "No data" unless told.
    void setNoDataText(const QString &text);

signals:
    void changeMessage(const QString &text);
    void selectedDataCellsChanged();
    void filterRowColContains(const QString &value, bool row);

protected:
    void paintEvent(QPaintEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;

private:
    QString emptyText() const;

    DataTableModel *m_model;
    Wait m_wait = Wait::None;
    QString m_noDataText = QStringLiteral("No data");
};
