#pragma once

#include <QTableView>

class BatchGridModel;
class Prompts;

/// Shows the rows of a batch. Cells have widgets while they are in view, so that a grid may have many rows.
class BatchGrid : public QTableView
{
    Q_OBJECT

public:
    /// Both must outlive this.
    BatchGrid(BatchGridModel &model, Prompts &prompts);

    QList<int> selectedRows() const;
    /// Shows a column of progress beside the others, which make room for it, or gives them their widths back.
    void setProgressShown(bool on);
    /// The height that shows every row.
    int neededHeight() const;

signals:
    void pathEdited();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void updateGeometries() override;

private slots:
    void placeWidgets();
    void onDataChanged(const QModelIndex &first);
    void onActivated(const QModelIndex &index);

private:
    void dropWidgets(int firstRow, int lastRow);
    void placeRow(int row);
    void orderForTab(int firstRow, int lastRow);
    QWidget *makeCell(const QModelIndex &index);
    QWidget *makeProgressBar(int row) const;
    void fillWidth();

    BatchGridModel &m_model;
    Prompts &m_prompts;
    QList<QPersistentModelIndex> m_placed;
    QList<int> m_widths; ///< of the columns without that of progress
};
