#pragma once

#include <QHashFunctions>
#include <QList>
#include <QMetaType>

/// 0-based position of a row; -1 is invalid.
class RowIndex
{
public:
    constexpr RowIndex() = default;
    constexpr explicit RowIndex(int row)
        : m_row(row)
    {
    }
    constexpr int toInt() const { return m_row; }
    constexpr bool isValid() const { return m_row >= 0; }
    friend constexpr bool operator==(RowIndex a, RowIndex b) { return a.m_row == b.m_row; }
    friend constexpr bool operator!=(RowIndex a, RowIndex b) { return a.m_row != b.m_row; }
    friend constexpr bool operator<(RowIndex a, RowIndex b) { return a.m_row < b.m_row; }

private:
    int m_row = -1;
};

/// 0-based position of a column; -1 is invalid.
class ColumnIndex
{
public:
    constexpr ColumnIndex() = default;
    constexpr explicit ColumnIndex(int column)
        : m_column(column)
    {
    }
    constexpr int toInt() const { return m_column; }
    constexpr bool isValid() const { return m_column >= 0; }
    friend constexpr bool operator==(ColumnIndex a, ColumnIndex b) { return a.m_column == b.m_column; }
    friend constexpr bool operator!=(ColumnIndex a, ColumnIndex b) { return a.m_column != b.m_column; }
    friend constexpr bool operator<(ColumnIndex a, ColumnIndex b) { return a.m_column < b.m_column; }

private:
    int m_column = -1;
};

/// 1-based number of a column, as a person sees it and as options store it; 0 is invalid.
class ColumnNumber
{
public:
    constexpr ColumnNumber() = default;
    constexpr explicit ColumnNumber(int number)
        : m_number(number)
    {
    }
    constexpr int toInt() const { return m_number; }
    constexpr bool isValid() const { return m_number > 0; }
    friend constexpr bool operator==(ColumnNumber a, ColumnNumber b) { return a.m_number == b.m_number; }
    friend constexpr bool operator!=(ColumnNumber a, ColumnNumber b) { return a.m_number != b.m_number; }
    friend constexpr bool operator<(ColumnNumber a, ColumnNumber b) { return a.m_number < b.m_number; }

private:
    int m_number = 0;
};

constexpr ColumnNumber toNumber(ColumnIndex column)
{
    return ColumnNumber(column.toInt() + 1);
}
constexpr ColumnIndex toIndex(ColumnNumber number)
{
    return ColumnIndex(number.toInt() - 1);
}

/// Identity of a column that survives runs, moves and renames: the node that made it and that node's serial.
class ColumnId
{
public:
    constexpr ColumnId() = default;
    constexpr ColumnId(int node, int number)
        : m_nodeId(node)
        , m_serial(number)
    {
    }
    constexpr int nodeId() const { return m_nodeId; }
    constexpr int serial() const { return m_serial; }
    /// True only for (-1, 0), the id of no column.
    constexpr bool isNull() const { return m_nodeId == -1 && m_serial == 0; }
    friend constexpr bool operator==(ColumnId a, ColumnId b)
    {
        return a.m_nodeId == b.m_nodeId && a.m_serial == b.m_serial;
    }
    friend constexpr bool operator!=(ColumnId a, ColumnId b) { return !(a == b); }
    friend constexpr bool operator<(ColumnId a, ColumnId b)
    {
        return a.m_nodeId != b.m_nodeId ? a.m_nodeId < b.m_nodeId : a.m_serial < b.m_serial;
    }

private:
    int m_nodeId = -1;
    int m_serial = 0;
};

inline uint qHash(RowIndex row, uint seed = 0)
{
    return ::qHash(row.toInt(), seed);
}
inline uint qHash(ColumnIndex column, uint seed = 0)
{
    return ::qHash(column.toInt(), seed);
}
inline uint qHash(ColumnId id, uint seed = 0)
{
    return ::qHash(id.nodeId(), seed) * 31u + ::qHash(id.serial(), seed);
}

Q_DECLARE_TYPEINFO(RowIndex, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(ColumnIndex, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(ColumnNumber, Q_PRIMITIVE_TYPE);
Q_DECLARE_TYPEINFO(ColumnId, Q_PRIMITIVE_TYPE);
Q_DECLARE_METATYPE(ColumnId)
