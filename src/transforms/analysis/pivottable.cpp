#include "transforms/analysis/pivottable.h"

#include "data/columnbuilder.h"
#include "data/wtf8append.h"

#include <algorithm>

static const Cell nameOfEmpty = Cell::inlined("(Empty)", 7);

PivotTable::PivotTable(const Dataset &input, const Settings &settings)
    : m_input(input)
    , m_settings(settings)
    , m_values(input.column(settings.value))
    , m_summary(settings.kind, m_values)
    , m_rowKeys(input, settings.rows)
    , m_columnKeys(input, settings.columns)
    , m_arena(new TextArena)
{
    setText(m_delimiter, settings.delimiter);
}

void PivotTable::add(int row)
{
    if (m_values.at(row).isEmpty()) {
        return;
    }
    m_rowKeys.add(row);
    m_columnKeys.add(row);
    m_taken.push_back(row);
}

Dataset PivotTable::build(const Report &report)
{
    m_rowKeys.sortByText();
    m_columnKeys.sortByText();
    const int keyCount = m_rowKeys.count();
    // Values are summed up in the order of the input in all groups: pairs are the rows by column, put by row.
    const RowGroups byColumn(m_columnKeys.numbers(), columnKeyCount());
    const RowGroups byRow(m_rowKeys.numbers(), keyCount);
    const RowGroups pairs(m_rowKeys.numbers(), keyCount, byColumn.all());
    makeCells();
    for (int key = 0; key < keyCount; ++key) {
        report(key, keyCount);
        const RowIndex row(key);
        setLabel(row);
        fillPairs(row, pairs.rows(key));
        if (m_settings.hasTotalColumn) {
            fillCell(row, totalColumn(), byRow.rows(key));
            addDrilldown(row, totalColumn(), byRow.rows(key));
        }
    }
    if (m_settings.hasTotalRow) {
        fillTotals(RowIndex(keyCount), byColumn);
    }
    m_table.setHeader(header());
    return std::move(m_table);
}

void PivotTable::makeCells()
{
    const auto rows = static_cast<int>(rowCount());
    CellColumn column = ColumnBuilder::filled(m_settings.missing, rows);
    column.keep(m_arena);
    for (qint64 i = 0; i < columnCount(); ++i) {
        m_table.appendColumn(column);
    }
}

void PivotTable::fillPairs(RowIndex row, const Rows &rows)
{
    for (const int *begin = rows.begin(); begin != rows.end();) {
        const int key = m_columnKeys.numberOf(*begin);
        const int *end = begin + 1;
        while (end != rows.end() && m_columnKeys.numberOf(*end) == key) {
            ++end;
        }
        const ColumnIndex column(1 + key);
        fillCell(row, column, {begin, end});
        addDrilldown(row, column, {begin, end});
        begin = end;
    }
}

void PivotTable::fillTotals(RowIndex row, const RowGroups &byColumn)
{
    setText(m_text, m_settings.totalName);
    setCell(row, ColumnIndex(0));
    for (int key = 0; key < columnKeyCount(); ++key) {
        const ColumnIndex column(1 + key);
        fillCell(row, column, byColumn.rows(key));
        addDrilldown(row, column, byColumn.rows(key));
    }
    if (m_settings.hasTotalColumn) {
        fillCell(row, totalColumn(), {m_taken.data(), m_taken.data() + m_taken.size()});
    }
}

void PivotTable::fillCell(RowIndex row, ColumnIndex column, const Rows &rows)
{
    if (!rows.isEmpty()) {
        m_summary.write(rows.begin(), rows.end(), m_text);
        setCell(row, column);
    }
}

void PivotTable::addDrilldown(RowIndex row, ColumnIndex column, const Rows &rows)
{
    if (m_settings.hasDrilldown) {
        for (int source : rows) {
            m_table.addDrilldownRow(row, column, RowIndex(source));
        }
    }
}

/// The text of the cell has been written before.
void PivotTable::setCell(RowIndex row, ColumnIndex column)
{
    m_table.setCell(row, column, m_arena->store(m_text.constData(), m_text.size()));
}

void PivotTable::setLabel(RowIndex row)
{
    if (m_settings.rows.isEmpty()) {
        setText(m_text, m_settings.totalName);
        setCell(row, ColumnIndex(0));
        return;
    }
    const RowIndex source(m_rowKeys.firstRow(row.toInt()));
    const auto isEmpty = [&](ColumnIndex column) { return m_input.cell(source, column).isEmpty(); };
    if (std::all_of(m_settings.rows.cbegin(), m_settings.rows.cend(), isEmpty)) {
        m_table.setCell(row, ColumnIndex(0), nameOfEmpty);
    } else {
        writeKey(source.toInt(), m_settings.rows);
        setCell(row, ColumnIndex(0));
    }
}

void PivotTable::writeKey(int inputRow, const QVector<ColumnIndex> &columns)
{
    m_text.clear();
    for (int i = 0; i < columns.size(); ++i) {
        if (i > 0) {
            appendWtf8(m_text, m_delimiter.constData(), m_delimiter.size());
        }
        const Cell &cell = m_input.cell(RowIndex(inputRow), columns.at(i));
        const Cell &part = cell.isEmpty() ? nameOfEmpty : cell;
        appendWtf8(m_text, part.bytes(), part.size());
    }
}

QString PivotTable::joinedNames(const QVector<ColumnIndex> &columns) const
{
    QStringList names;
    for (ColumnIndex column : columns) {
        names.append(m_input.columnName(column));
    }
    return names.join(m_settings.delimiter);
}

QStringList PivotTable::header()
{
    QStringList names{joinedNames(m_settings.rows.isEmpty() ? m_settings.columns : m_settings.rows)};
    if (m_settings.columns.isEmpty()) {
        names.append(m_settings.totalName);
    }
    for (int key = 0; key < columnKeyCount() && !m_settings.columns.isEmpty(); ++key) {
        writeKey(m_columnKeys.firstRow(key), m_settings.columns);
        names.append(TextCoding::decode(m_text.constData(), m_text.size()));
    }
    if (m_settings.hasTotalColumn) {
        names.append(m_settings.totalName);
    }
    return names;
}
