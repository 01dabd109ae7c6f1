#pragma once

#include "data/dataset.h"

#include <QAbstractTableModel>
#include <QBrush>
#include <QHash>
#include <QSet>
#include <array>
#include <functional>
#include <vector>

/// A table as views show it. Works out what a cell looks like when it is asked, so a table of millions of rows is there
/// at once. It holds copies of its own, which share their columns with the originals: what is shown never dangles, but
/// a column that the original writes to meanwhile is copied. So it is told to let go, by clear(), before the original
/// changes, and what to show afterwards.
///
/// A filter makes rows of the model fewer than those of the table: rowOf() and modelRowOf() go from one to the other.
/// A comparison also puts them in another order, with empty rows between them.
/// Columns are always those of the table.
class DataTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// A table with more than one of these is too big to show.
    static constexpr int mostColumns = 100000;
    static constexpr int mostRows = 10000000;

    explicit DataTableModel(QObject *parent = nullptr);

    /// Shows a table, without a filter. Its changes are those from `previous`, whose columns are found by id; without
    /// one, or with an empty one, nothing counts as changed.
    void setDataset(const Dataset &dataset, const Dataset &previous = Dataset());
    /// Shows nothing and lets go of the tables.
    void clear();
    const Dataset &dataset() const { return m_dataset; }
    bool isTooBig() const { return m_dataset.columnCount() > mostColumns || m_dataset.rowCount() > mostRows; }
    /// Says how big the table is and how to make it smaller; empty unless it is too big.
    QString tooBigText() const;

    /// Colours cells that differ from the previous table.
    void setShowChanges(bool on);
    bool showsChanges() const { return m_showChanges; }
    /// Shows blanks, tabs and the like as marks.
    void setShowWhitespace(bool on);
    bool showsWhitespace() const { return m_showWhitespace; }
    /// Shows the marks that verification left in the table.
    void setVerification(bool on);
    bool isVerification() const { return m_verification; }
    /// Tints these columns, by index.
    void setHighlightColumns(const QSet<int> &columns);
    /// Tints the rows of the table, counted from 0, that hold true here; setDataset() tints none.
    void setHighlightRows(const std::vector<bool> &rows);

    /// Shows only `rows` of the table. Those who use modelRowOf() give them in ascending order.
    void setShownRows(const QVector<int> &rows);
    /// Shows `rows` of the table, in any order, where a row of -1 is empty. The background of the cells that `isMarked`
    /// says yes to, by rows of the model, has that colour. modelRowOf() isn't for this.
    void setArrangedRows(const QVector<int> &rows,
        const std::function<bool(int modelRow, ColumnIndex column)> &isMarked, const QColor &color);
    void showAllRows();
    bool isFiltered() const { return m_filtered; }
    /// The table's row behind a row of the model; invalid for one that is empty.
    RowIndex rowOf(int modelRow) const;
    /// -1 for a row that the filter hides.
    int modelRowOf(RowIndex row) const;

    /// True where the table differs from the previous one, whether that is shown or not. The indexes are the table's.
    bool isChanged(RowIndex row, ColumnIndex column) const;
    /// True for a column that is new or renamed.
    bool isChangedColumn(ColumnIndex column) const { return m_changedColumns.contains(column.toInt()); }
    /// The column that one was in the previous table; null where there is none.
    const CellColumn *previousColumn(ColumnIndex column) const;
    /// "'old' -> 'new'" with the beginnings of both texts; empty for a cell that is what it was or is new.
    QString changeText(RowIndex row, ColumnIndex column) const;

    /// The table whose rows stand behind cells of this one; clear() and setDataset() let go of it.
    void setDrilldownSource(const Dataset &source);
    /// True when there are rows behind a cell of the model.
    bool hasDrilldown(const QModelIndex &index) const;
    /// These rows as a table.
    Dataset drilldown(const QModelIndex &index) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    void readColors();
    void findColumns();
    /// What cells look like has changed, not what they are.
    void updateLook();
    /// The cell of the previous table in the same place; null where there is none.
    const Cell *previousCell(RowIndex row, ColumnIndex column) const;
    QVector<int> drilldownRows(const QModelIndex &index) const;
    QString shownText(const Cell &cell, int limit) const;
    /// The look of a cell that is marked; nothing for others.
    QVariant markedLook(const QModelIndex &index, int role) const;
    QVariant background(RowIndex row, ColumnIndex column) const;
    QVariant issueBrush(RowIndex row, ColumnIndex column) const;
    QString toolTip(RowIndex row, ColumnIndex column) const;
    /// The tip of a header with what verification found there.
    QString withIssues(const QString &tip, RowIndex row, ColumnIndex column) const;
    QVariant columnHeader(ColumnIndex column, int role) const;
    QVariant rowHeader(RowIndex row, int role) const;

    Dataset m_dataset;
    Dataset m_previous;
    Dataset m_drilldownSource;
    QVector<int> m_shownRows;
    bool m_filtered = false;
    bool m_showChanges = false;
    bool m_showWhitespace = false;
    bool m_verification = false;
    QSet<int> m_changedColumns;  ///< new or renamed ones, which are changed as a whole
    QHash<int, int> m_columnMap; ///< index in the previous table by index in this one
    QSet<int> m_highlightColumns;
    std::vector<bool> m_highlightRows;
    QBrush m_changedBrush;
    QBrush m_highlightBrush;
    std::array<QBrush, DatasetIssues::noLevel> m_issueBrushes; ///< by level
    std::function<bool(int modelRow, ColumnIndex column)> m_isMarked;
    QColor m_markColor;
};
