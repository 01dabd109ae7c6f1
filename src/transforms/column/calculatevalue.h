#pragma once

#include "data/dataset.h"

#include <QStringList>

/// One of the values of Calculate: a column of the table or a constant, which reads as a column with the same cell in
/// every row.
class CalculateValue
{
public:
    /// A value that no row has.
    CalculateValue() = default;
    /// `dataset` must outlive the value.
    static CalculateValue ofColumn(const Dataset &dataset, ColumnIndex column);
    static CalculateValue ofConstant(const QString &text);

    bool isSet() const { return m_isSet; }
    const Cell &at(int row) const { return m_cells[row * m_step]; }
    /// The column's name or the trimmed constant.
    const QString &name() const { return m_name; }
    /// How a message tells of the place: " in column 'Price'", or nothing for a constant.
    const QString &place() const { return m_place; }
    /// True when the value reads as a date; `*format` takes the first of `formats` that fits.
    bool isDate(const QStringList &formats, QString *format) const;

private:
    const Dataset *m_dataset = nullptr;
    ColumnIndex m_columnIndex;
    CellColumn m_column;
    const Cell *m_cells = nullptr;
    int m_step = 0;
    bool m_isSet = false;
    QString m_name;
    QString m_place;
};

/// Reads cells as values; a text that stands in row after row, such as a constant, is read once.
template<class Value>
class LastRead
{
public:
    /// `read` is a pure function of the cell.
    template<class Read>
    const Value &of(const Cell &cell, Read read)
    {
        if (cell.bits() != m_bits) {
            m_value = read(cell);
            m_bits = cell.bits();
        }
        return m_value;
    }

private:
    quint64 m_bits = ~quint64(0); // of no cell
    Value m_value{};
};
