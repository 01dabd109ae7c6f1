#pragma once

#include "data/dataset.h"

#include <QVector>

class DataTableModel;

/// Cells of a table side by side; all four belong to the range, and count rows of the model.
struct CellRange
{
    int top = 0;
    int left = 0;
    int bottom = -1;
    int right = -1;
    qint64 cellCount() const { return qint64(bottom - top + 1) * (right - left + 1); }
};

enum class CopiedHeader { With, Without, Only };

/// The rows and columns of a table in which anything is selected. Takes no memory for rows until they are copied.
class TableSelection
{
public:
    explicit TableSelection(const QVector<CellRange> &ranges);

    int rowCount() const { return count(m_rows); }
    int columnCount() const { return count(m_columns); }
    bool isEmpty() const { return m_rows.isEmpty() || m_columns.isEmpty(); }
    /// These rows and columns as a table of their own, in their order.
    Dataset copied(const DataTableModel &table, CopiedHeader header) const;

private:
    struct Span
    {
        int first;
        int last;
    };
    using Spans = QVector<Span>;

    /// In ascending order, without overlaps.
    static Spans merged(Spans spans);
    static int count(const Spans &spans);

    Spans m_rows;
    Spans m_columns;
};
