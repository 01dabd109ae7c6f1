#pragma once

#include "panes/table/tableselection.h"

#include <QSet>
#include <QTableView>
#include <memory>

class DataTableModel;
class Prompts;
class QMenu;

/// A table with its rows and columns as a DataTableModel shows them, and a word on why there is nothing to see. Cells
/// can be selected, copied, and looked at in windows of their own.
class DataTableView : public QTableView
{
    Q_OBJECT

public:
    /// Why there may be no table; a table that is too big or empty tells that by itself.
    enum class Wait { None, AwaitingUpdate, RunToUpdate, Processing };
    /// What the first clicks tell, each once in the program's life; Pane is told before the others. None is for tables
    /// in windows of their own, which have no filter either.
    enum class Hint { None, Pane, Drilldown, Verification };

    explicit DataTableView(QWidget *parent = nullptr);
    ~DataTableView() override;

    DataTableModel &table() const { return *m_model; }
    void setWait(Wait wait);
    /// What stands in place of a table without columns; "No data" unless told.
    void setNoDataText(const QString &text);
    void setHint(Hint hint) { m_hint = hint; }
    /// Who asks and opens windows; outlives the view. Without it the view does so itself.
    void setPrompts(Prompts &prompts) { m_prompts = &prompts; }

    QSet<int> hiddenColumns() const;
    /// Figures of the selected cells, for the status bar.
    QString selectionText() const;

public slots:
    void onVerticalHeaderDoubleClicked(int row);
    void onHorizontalHeaderDoubleClicked(int col);
    void onVerticalHeaderRightClicked(QPoint pos);
    void onHorizontalHeaderRightClicked(QPoint pos);
    /// Shows the row that was clicked on, or the first that is selected, or row 1.
    void onShowRowData();
    /// The same for columns.
    void onShowColData();
    void onCopySelectedWithHeader();
    void onCopySelectedWithoutHeader();
    void onCopySelectedHeaderOnly();
    void onFilterRowContains();
    void onFilterColContains();
    /// Gives the width of one selected column to all of them.
    void onHeaderSectionResized(int logicalIndex, int oldSize, int newSize);
    void onDoubleClicked(const QModelIndex &index);
    void onDrilldown();
    void onShowValue();

signals:
    /// What changed in the current cell; empty for nothing.
    void changeMessage(const QString &text);
    void selectedDataCellsChanged();
    /// Only rows, or only columns, that contain the value are to be shown.
    void filterRowColContains(const QString &value, bool row);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) override;
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    void connectHeaders();
    void readFont();
    QString emptyText() const;
    Prompts &prompts();
    /// The selected cells without those in hidden columns.
    QVector<CellRange> selectedRanges() const;
    bool isWholeColumnSelected(int column) const;
    bool isWholeRowSelected(int row) const;
    void selectCells(const QModelIndex &first, const QModelIndex &last);
    void copy(CopiedHeader header);
    void addCopyActions(QMenu &menu, bool withHeaderOnly);
    void showCellMenu(const QModelIndex &index, const QPoint &place);
    void showHint();
    QString currentValue() const;

    DataTableModel *m_model;
    Wait m_wait = Wait::None;
    Hint m_hint = Hint::None;
    Prompts *m_prompts = nullptr;
    std::unique_ptr<Prompts> m_ownPrompts;
    QString m_noDataText = QStringLiteral("No data");
    int m_clickedRow = -1;    ///< in the menu of its header, until it is shown
    int m_clickedColumn = -1; ///< the same for a column
    bool m_isResizing = false;
};
