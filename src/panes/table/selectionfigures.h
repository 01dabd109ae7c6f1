#pragma once

#include "panes/table/tableselection.h"

#include <QString>

/// What a person is told about the cells that are selected in a table.
class SelectionFigures
{
public:
    /// Reads the cells of `ranges`, which don't overlap; when there are more than `mostCells` they are only counted,
    /// so that selecting whole columns of a long table is quick.
    SelectionFigures(const DataTableModel &table, const QVector<CellRange> &ranges, int mostCells);

    /// "Selected: 3 Empty: 1 ..." with the figures by the locale; the beginning of the value for a single cell; empty
    /// without any.
    QString text() const;

private:
    void add(const DataTableModel &table, const CellRange &range);

    qint64 m_selected = 0;
    bool m_isRead = false;
    int m_empty = 0;
    int m_numeric = 0;
    double m_sum = 0;
    double m_min = 0;
    double m_max = 0;
    QString m_value; ///< of a single cell
};
