#include "spreadsheet/sheetlayout.h"

#include <algorithm>

namespace spreadsheet {

const ColumnRecord *SheetLayout::column(int column) const
{
    const auto found = std::lower_bound(columns.begin(), columns.end(), column,
        [](const ColumnRecord &record, int wanted) { return record.last < wanted; });
    return found == columns.end() || found->first > column ? nullptr : &*found;
}

void SheetLayout::setColumn(int column, double width, bool hidden)
{
    auto place = std::lower_bound(columns.begin(), columns.end(), column,
        [](const ColumnRecord &record, int wanted) { return record.last < wanted; });
    ColumnRecord changed;
    if (place != columns.end() && place->first <= column) {
        changed = *place;
        const ColumnRecord whole = *place;
        place = columns.erase(place);
        if (whole.last > column) {
            ColumnRecord behind = whole;
            behind.first = column + 1;
            place = columns.insert(place, behind);
        }
        if (whole.first < column) {
            ColumnRecord before = whole;
            before.last = column - 1;
            place = std::next(columns.insert(place, before));
        }
    }
    changed.first = changed.last = column;
    changed.width = width;
    changed.hidden = hidden;
    columns.insert(place, changed);
    columnsChanged = true;
}

} // namespace spreadsheet
