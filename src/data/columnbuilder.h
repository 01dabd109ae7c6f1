#pragma once

#include "data/cellcolumn.h"
#include "data/textbuffer.h"
#include "data/valuepool.h"

#include <QString>

/// Builds a column from the first row to the last; equal texts share their bytes.
class ColumnBuilder
{
public:
    /// Room for `rows` rows.
    explicit ColumnBuilder(int rows)
        : m_arena(new TextArena)
    {
        m_column.keep(m_arena);
        m_column.cells.reserve(rows);
    }

    /// A column of `rows` rows that all hold `text`.
    static CellColumn filled(const QString &text, int rows)
    {
        ColumnBuilder column(rows);
        const Cell cell = column.m_arena->store(text);
        for (int row = 0; row < rows; ++row) {
            column.m_column.cells.append(cell);
        }
        return column.take();
    }

    void append(const char *bytes, int size) { m_column.cells.append(store(bytes, size)); }
    void append(const TextBuffer &text) { append(text.constData(), text.size()); }
    void append(const QString &text)
    {
        setText(m_buffer, text);
        append(m_buffer);
    }
    void appendEmpty() { m_column.cells.append(Cell()); }
    /// A cell that lies in this column already, in an arena told by keepAllOf(), or in the cell itself.
    void append(Cell cell) { m_column.cells.append(cell); }
    void keepAllOf(const CellColumn &source) { m_column.keepAllOf(source); }
    int size() const { return m_column.size(); }
    CellColumn take() { return std::move(m_column); }

private:
    Cell store(const char *bytes, int size)
    {
        if (size <= Cell::inlineCapacity) {
            return Cell::inlined(bytes, size);
        }
        Cell cell = m_pool.find(bytes, size);
        if (cell.isEmpty()) {
            cell = m_arena->store(bytes, size);
            m_pool.enter(cell);
        }
        return cell;
    }

    CellColumn m_column;
    TextArenaPointer m_arena;
    ValuePool m_pool;
    TextBuffer m_buffer;
};
