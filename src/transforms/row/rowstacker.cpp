#include "transforms/row/rowstacker.h"

#include "data/arenaunion.h"

Dataset RowStacker::table(int leftOut) const
{
    ArenaUnion texts;
    for (int i = 0; i < m_source.columnCount(); ++i) {
        texts.add(m_source.column(ColumnIndex(i)));
    }
    const TextArenaPointer arena = texts.arena();
    Dataset result;
    QStringList names;
    const QStringList sourceNames = m_source.columnNames();
    QStringList repeatedNames = sourceNames;
    if (leftOut >= 0) {
        repeatedNames.removeAt(leftOut);
    }
    for (int column = 0; column < m_width; ++column) {
        CellColumn cells;
        cells.keep(arena);
        cells.cells.resize(m_ends.size());
        Cell *out = cells.cells.data();
        int begin = 0;
        for (int row = 0; row < m_ends.size(); ++row) {
            if (begin + column < m_ends.at(row)) {
                out[row] = m_cells.at(begin + column);
            }
            begin = m_ends.at(row);
        }
        const bool isFirst = column < sourceNames.size();
        result.appendColumn(cells, QString(), isFirst ? m_source.columnId(ColumnIndex(column)) : ColumnId());
        names.append(
            isFirst ? sourceNames.at(column) : repeatedNames.at((column - sourceNames.size()) % repeatedNames.size()));
    }
    if (m_source.hasHeader() && !names.isEmpty()) {
        result.setHeader(names);
    }
    return result;
}
