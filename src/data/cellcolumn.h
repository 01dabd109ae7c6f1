#pragma once

#include "data/cellvector.h"
#include "data/textarena.h"

#include <QVector>

/// One column of cells together with the arenas that their texts lie in.
struct CellColumn
{
    CellVector cells;
    QVector<TextArenaPointer> arenas;

    int size() const { return cells.size(); }
    const Cell &at(int row) const { return cells.at(row); }
    /// Makes cells that come from `arena` safe to keep here.
    void keep(const TextArenaPointer &arena)
    {
        if (arena && (arenas.isEmpty() || (arenas.constLast() != arena && !arenas.contains(arena)))) {
            arenas.append(arena);
        }
    }
    /// Makes cells of `other` safe to keep here.
    void keepAllOf(const CellColumn &other)
    {
        for (const TextArenaPointer &arena : other.arenas) {
            keep(arena);
        }
    }
    /// The cells of `rows`, in that order; a row of -1 gives an empty cell.
    CellColumn gathered(const QVector<int> &rows) const
    {
        CellColumn result;
        result.arenas = arenas;
        Cell *out = result.cells.extend(rows.size());
        const Cell *in = cells.constData();
        for (int i = 0; i < rows.size(); ++i) {
            out[i] = rows.at(i) < 0 ? Cell() : in[rows.at(i)];
        }
        return result;
    }
};
