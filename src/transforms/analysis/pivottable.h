#pragma once

#include "data/dataset.h"
#include "data/valuesummary.h"
#include "transforms/keys/rowgroups.h"
#include "transforms/keys/rowkeys.h"

#include <functional>

/// A cross table: the values of one column, summed up for each pair of a key of the rows and a key of the columns.
class PivotTable
{
public:
    struct Settings
    {
        QVector<ColumnIndex> rows;    ///< whose texts make the rows; none for one row, when there are `columns`
        QVector<ColumnIndex> columns; ///< whose texts make the columns; none for one column, when there are `rows`
        ColumnIndex value;
        SummaryKind kind = SummaryKind::Sum;
        QString totalName;
        QString delimiter;
        QString missing; ///< what a cell holds that no row of the input has a value for
        bool hasTotalRow = true;
        bool hasTotalColumn = true;
        bool hasDrilldown = false;
    };
    using Report = std::function<void(int row, int rowCount)>;

    /// `input` outlives the table.
    PivotTable(const Dataset &input, const Settings &settings);

    /// True for a text that can't be summed up.
    bool isFailure(int row) const { return ValueSummary::isNumeric(m_settings.kind) && !m_summary.hasNumber(row); }
    /// Takes a row of the input, unless its value is empty.
    void add(int row);
    /// Size of the table of the rows taken so far.
    qint64 rowCount() const { return m_rowKeys.count() + m_settings.hasTotalRow; }
    qint64 columnCount() const { return 1 + columnKeyCount() + m_settings.hasTotalColumn; }
    /// Makes the table of the rows taken, once; `report` is called for each row of it that has a key.
    Dataset build(const Report &report);

private:
    using Rows = RowGroups::Rows;

    int columnKeyCount() const { return m_settings.columns.isEmpty() ? 1 : m_columnKeys.count(); }
    ColumnIndex totalColumn() const { return ColumnIndex(1 + columnKeyCount()); }
    void makeCells();
    void fillPairs(RowIndex row, const Rows &rows);
    void fillTotals(RowIndex row, const RowGroups &byColumn);
    void fillCell(RowIndex row, ColumnIndex column, const Rows &rows);
    void addDrilldown(RowIndex row, ColumnIndex column, const Rows &rows);
    void setCell(RowIndex row, ColumnIndex column);
    void setLabel(RowIndex row);
    void writeKey(int inputRow, const QVector<ColumnIndex> &columns);
    QString joinedNames(const QVector<ColumnIndex> &columns) const;
    QStringList header();

    const Dataset &m_input;
    const Settings m_settings;
    const CellColumn m_values;
    ValueSummary m_summary;
    RowKeys m_rowKeys;
    RowKeys m_columnKeys;
    std::vector<int> m_taken;
    const TextArenaPointer m_arena; ///< of the texts of all cells
    Dataset m_table;
    TextBuffer m_delimiter;
    TextBuffer m_text; ///< that is being made for a cell or a name
};
