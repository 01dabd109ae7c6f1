#include "transforms/row/groupcolumn.h"

#include "data/columnbuilder.h"
#include "data/dateparser.h"
#include "data/distincttexts.h"
#include "data/numberreader.h"
#include "data/realwriter.h"
#include "data/values.h"
#include "data/valuesummary.h"
#include "data/wholenumber.h"
#include "data/wtf8append.h"

#include <cmath>
#include <optional>

namespace {

/// The cells of the rows that `choose` picks from each group; -1 for an empty cell.
template<class Choose>
CellColumn chosen(const CellColumn &cells, const RowGroups &groups, Choose choose)
{
    QVector<int> rows(groups.count());
    for (int group = 0; group < groups.count(); ++group) {
        rows[group] = choose(groups.rows(group));
    }
    return cells.gathered(rows);
}

/// The row with the largest or smallest of the values that `read` finds, the first of equals; -1 for none.
template<class Read>
CellColumn extremes(const CellColumn &cells, const RowGroups &groups, bool largest, Read read)
{
    return chosen(cells, groups, [&](const RowGroups::Rows &rows) {
        int best = -1;
        decltype(read(Cell())) bestValue;
        for (int row : rows) {
            const auto value = read(cells.at(row));
            if (value && (!bestValue || (largest ? *bestValue < *value : *value < *bestValue))) {
                best = row;
                bestValue = *value;
            }
        }
        return best;
    });
}

CellColumn extremes(const Dataset &dataset, ColumnIndex column, const RowGroups &groups, bool largest)
{
    const CellColumn &cells = dataset.column(column);
    QString format;
    if (dataset.columnType(column, dateFormats(), &format, true) == Dataset::Date) {
        const DateParser parser(format);
        return extremes(cells, groups, largest, [&parser](const Cell &cell) {
            const QDate date = parser.parse(cell);
            return date.isValid() ? std::optional<qint64>(date.toJulianDay()) : std::nullopt;
        });
    }
    using Value = std::pair<double, qint64>; // a number and what a large whole one lies above it
    const NumberReader reader(false, true);
    return extremes(cells, groups, largest, [&reader](const Cell &cell) {
        bool ok = false;
        const double number = reader.read(cell, &ok);
        if (!ok || std::isnan(number)) {
            return std::optional<Value>();
        }
        const bool isShared = WholeNumber::isShared(number);
        return std::optional<Value>({number, isShared ? WholeNumber::restOf(cell, number, reader).value_or(0) : 0});
    });
}

CellColumn summarized(const CellColumn &cells, const RowGroups &groups, SummaryKind kind, bool emptyForNone)
{
    ValueSummary summary(kind, cells);
    ColumnBuilder result(groups.count());
    TextBuffer text;
    for (int group = 0; group < groups.count(); ++group) {
        const RowGroups::Rows rows = groups.rows(group);
        if (summary.write(rows.begin(), rows.end(), text) == 0 && emptyForNone) {
            text.clear();
        }
        result.append(text);
    }
    return result.take();
}

template<class Count>
CellColumn counted(const RowGroups &groups, Count count)
{
    const RealWriter writer;
    ColumnBuilder result(groups.count());
    TextBuffer text;
    for (int group = 0; group < groups.count(); ++group) {
        writer.write(count(groups.rows(group)), text);
        result.append(text);
    }
    return result.take();
}

CellColumn countedEmpty(const CellColumn &cells, const RowGroups &groups, bool empty)
{
    return counted(groups, [&](const RowGroups::Rows &rows) {
        int count = 0;
        for (int row : rows) {
            count += cells.at(row).isEmpty() == empty;
        }
        return count;
    });
}

CellColumn countedDistinct(const CellColumn &cells, const RowGroups &groups, UniqueMode mode)
{
    DistinctTexts texts(cells);
    return counted(groups, [&](const RowGroups::Rows &rows) {
        int distinct = 0;
        int repeated = 0;
        texts.startList();
        for (int row : rows) {
            const int times = texts.add(row);
            distinct += times == 1;
            repeated += times == 2;
        }
        return mode == UniqueMode::CountDistinct    ? distinct
               : mode == UniqueMode::CountDuplicate ? repeated
                                                    : distinct - repeated;
    });
}

/// `isWanted` is called once for each row, group by group, after `startGroup`.
template<class StartGroup, class IsWanted>
CellColumn concatenated(const CellColumn &cells, const RowGroups &groups, const Concatenation &concatenation,
    StartGroup startGroup, IsWanted isWanted)
{
    TextBuffer delimiter;
    setText(delimiter, concatenation.delimiter);
    ColumnBuilder result(groups.count());
    TextBuffer text;
    for (int group = 0; group < groups.count(); ++group) {
        startGroup();
        text.clear();
        bool first = true;
        for (int row : groups.rows(group)) {
            const Cell &cell = cells.at(row);
            if ((concatenation.ignoreEmpty && cell.isEmpty()) || !isWanted(row)) {
                continue;
            }
            if (!first) {
                appendWtf8(text, delimiter.constData(), delimiter.size());
            }
            first = false;
            appendWtf8(text, cell.bytes(), cell.size());
        }
        result.append(text);
    }
    return result.take();
}

CellColumn concatenated(
    const CellColumn &cells, const RowGroups &groups, const Concatenation &concatenation, bool distinct)
{
    if (!distinct) {
        return concatenated(
            cells, groups, concatenation, [] {}, [](int) { return true; });
    }
    DistinctTexts texts(cells);
    return concatenated(
        cells, groups, concatenation, [&texts] { texts.startList(); },
        [&texts](int row) { return texts.add(row) == 1; });
}

int firstNonEmpty(const CellColumn &cells, const RowGroups::Rows &rows)
{
    for (int row : rows) {
        if (!cells.at(row).isEmpty()) {
            return row;
        }
    }
    return -1;
}

int lastNonEmpty(const CellColumn &cells, const RowGroups::Rows &rows)
{
    for (const int *row = rows.end(); row != rows.begin();) {
        if (!cells.at(*--row).isEmpty()) {
            return *row;
        }
    }
    return -1;
}

} // namespace

CellColumn groupColumn(const Dataset &dataset, ColumnIndex column, const RowGroups &groups, UniqueMode mode,
    const Concatenation &concatenation)
{
    const CellColumn &cells = dataset.column(column);
    switch (mode) {
    case UniqueMode::KeepUnique:
    case UniqueMode::KeepFirst:
        break;
    case UniqueMode::KeepLast:
        return chosen(cells, groups, [](const RowGroups::Rows &rows) { return rows.last(); });
    case UniqueMode::Sum:
        return summarized(cells, groups, SummaryKind::Sum, false);
    case UniqueMode::Maximum:
    case UniqueMode::Minimum:
        return extremes(dataset, column, groups, mode == UniqueMode::Maximum);
    case UniqueMode::Average:
        return summarized(cells, groups, SummaryKind::Average, true);
    case UniqueMode::Concat:
    case UniqueMode::ConcatDistinct:
        return concatenated(cells, groups, concatenation, mode == UniqueMode::ConcatDistinct);
    case UniqueMode::KeepFirstNonEmpty:
        return chosen(cells, groups, [&cells](const RowGroups::Rows &rows) { return firstNonEmpty(cells, rows); });
    case UniqueMode::KeepLastNonEmpty:
        return chosen(cells, groups, [&cells](const RowGroups::Rows &rows) { return lastNonEmpty(cells, rows); });
    case UniqueMode::CountDistinct:
    case UniqueMode::CountUnique:
    case UniqueMode::CountDuplicate:
        return countedDistinct(cells, groups, mode);
    case UniqueMode::CountEmpty:
    case UniqueMode::CountNonEmpty:
        return countedEmpty(cells, groups, mode == UniqueMode::CountEmpty);
    case UniqueMode::SetEmpty:
        return ColumnBuilder::filled(QString(), groups.count());
    }
    return chosen(cells, groups, [](const RowGroups::Rows &rows) { return rows.first(); });
}

CellColumn groupSizes(const RowGroups &groups)
{
    return counted(groups, [](const RowGroups::Rows &rows) { return rows.size(); });
}
