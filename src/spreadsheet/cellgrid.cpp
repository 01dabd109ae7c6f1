#include "spreadsheet/cellgrid.h"

#include <algorithm>

namespace spreadsheet {
namespace {

std::vector<CellRecord>::const_iterator findColumn(const std::vector<CellRecord> &cells, int column)
{
    return std::lower_bound(
        cells.begin(), cells.end(), column, [](const CellRecord &cell, int wanted) { return cell.column < wanted; });
}

} // namespace

const GridRow *CellGrid::row(int row) const
{
    const auto found = m_rows.find(row);
    return found == m_rows.end() ? nullptr : &found->second;
}

GridRow &CellGrid::rowFor(int row)
{
    if (m_last == m_rows.end() || m_last->first != row) {
        m_last = m_rows.try_emplace(m_rows.end(), row);
    }
    return m_last->second;
}

const CellRecord *CellGrid::cell(int row, int column) const
{
    const GridRow *cells = m_last != m_rows.end() && m_last->first == row ? &m_last->second : this->row(row);
    if (!cells) {
        return nullptr;
    }
    const auto found = findColumn(cells->cells, column);
    return found == cells->cells.end() || found->column != column ? nullptr : &*found;
}

CellRecord &CellGrid::cellFor(int row, int column)
{
    std::vector<CellRecord> &cells = rowFor(row).cells;
    if (cells.empty() || cells.back().column < column) {
        m_areaKnown = false;
        cells.emplace_back();
        cells.back().column = static_cast<quint16>(column);
        return cells.back();
    }
    const auto place = findColumn(cells, column);
    if (place != cells.end() && place->column == column) {
        CellRecord &cell = cells[static_cast<size_t>(place - cells.begin())];
        if (cell.isFormula) {
            m_formulas.erase(key(row, column));
            cell.isFormula = false;
        }
        if (!m_extras.empty()) {
            m_extras.erase(key(row, column));
        }
        return cell;
    }
    m_areaKnown = false;
    CellRecord cell;
    cell.column = static_cast<quint16>(column);
    return *cells.insert(place, cell);
}

void CellGrid::clear(int rowFirst, int rowLast, int columnFirst, int columnLast)
{
    for (auto row = m_rows.lower_bound(rowFirst); row != m_rows.end() && row->first <= rowLast; ++row) {
        std::vector<CellRecord> &cells = row->second.cells;
        const auto kept = std::remove_if(cells.begin(), cells.end(),
            [=](const CellRecord &cell) { return cell.column >= columnFirst && cell.column <= columnLast; });
        if (kept != cells.end()) {
            row->second.dropFittedHeight();
        }
        cells.erase(kept, cells.end());
    }
    const auto eraseFrom = [=](auto *records) {
        for (auto record = records->begin(); record != records->end();) {
            const int row = static_cast<int>(record->first >> 16);
            const int column = static_cast<int>(record->first & 0xFFFF);
            const bool gone = row >= rowFirst && row <= rowLast && column >= columnFirst && column <= columnLast;
            record = gone ? records->erase(record) : std::next(record);
        }
    };
    eraseFrom(&m_formulas);
    eraseFrom(&m_extras);
    m_areaKnown = false;
}

void CellGrid::clearAll()
{
    m_rows.clear();
    m_last = m_rows.end();
    m_formulas.clear();
    m_extras.clear();
    m_areaKnown = false;
}

const FormulaRecord *CellGrid::formula(int row, int column) const
{
    const auto found = m_formulas.find(key(row, column));
    return found == m_formulas.end() ? nullptr : &found->second;
}

void CellGrid::setFormula(int row, int column, FormulaRecord formula)
{
    cellFor(row, column).isFormula = true;
    m_formulas[key(row, column)] = std::move(formula);
}

const CellExtras *CellGrid::extras(int row, int column) const
{
    if (m_extras.empty()) {
        return nullptr;
    }
    const auto found = m_extras.find(key(row, column));
    return found == m_extras.end() ? nullptr : &found->second;
}

void CellGrid::setExtras(int row, int column, CellExtras extras)
{
    m_extras[key(row, column)] = std::move(extras);
}

const CellGrid::Area &CellGrid::area() const
{
    if (m_areaKnown) {
        return m_area;
    }
    Area area;
    bool isFirst = true;
    for (const auto &[number, row] : m_rows) {
        if (row.cells.empty()) {
            continue;
        }
        const int left = row.cells.front().column;
        area.firstRow = isFirst ? number : area.firstRow;
        area.firstColumn = isFirst ? left : std::min(area.firstColumn, left);
        area.lastRow = number + 1;
        area.lastColumn = std::max(area.lastColumn, row.cells.back().column + 1);
        isFirst = false;
    }
    m_area = area;
    m_areaKnown = true;
    return m_area;
}

} // namespace spreadsheet
