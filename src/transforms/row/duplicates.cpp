#include "transforms/row/duplicates.h"

#include "transforms/row/dedupeprogress.h"
#include "transforms/row/duplicatesearch.h"

#include "data/rowsorting.h"
#include "data/values.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr int exact = 100;

/// Where the columns of AddInformation stand, behind those of the table.
enum InformationColumn { Group, Row, Closeness, Duplicate, Duplicates, InformationColumnCount };

/// A column of numbers and words that is being written.
class InformationWriter
{
public:
    explicit InformationWriter(int rowCount)
    {
        m_column.keep(m_arena);
        m_column.cells.reserve(rowCount);
    }
    void appendNumber(int number)
    {
        char digits[16];
        const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        m_column.cells.append(m_arena->store(digits, static_cast<int>(end - digits)));
    }
    void appendEmpty() { m_column.cells.append(Cell()); }
    void appendBool(bool on) { m_column.cells.append(on ? Cell::inlined("true", 4) : Cell::inlined("false", 5)); }
    const CellColumn &column() const { return m_column; }

private:
    CellColumn m_column;
    TextArenaPointer m_arena{new TextArena};
};

QVector<int> rowsThat(const DuplicateSearch &search, bool areFirst)
{
    QVector<int> rows;
    rows.reserve(areFirst ? search.groupCount() : search.duplicateCount());
    int row = 0;
    for (const DuplicateSearch::Place &place : search.places()) {
        if (place.isFirst() == areFirst) {
            rows.append(row);
        }
        ++row;
    }
    return rows;
}

/// The table as it came, for when every row stays.
Dataset sharedCopy(const Dataset &dataset)
{
    Dataset result = dataset;
    result.clearDrilldown();
    result.clearIssues();
    return result;
}

void addDrilldown(Dataset &result, const DuplicateSearch &search)
{
    int row = 0;
    for (const DuplicateSearch::Place &place : search.places()) {
        result.addDrilldownRow(RowIndex(place.group), ColumnIndex(), RowIndex(row++));
    }
}

Dataset withInformation(const Dataset &dataset, const DuplicateSearch &search)
{
    const int rowCount = static_cast<int>(search.places().size());
    std::vector<int> duplicatesOf(static_cast<size_t>(search.groupCount()));
    for (const DuplicateSearch::Place &place : search.places()) {
        duplicatesOf[static_cast<size_t>(place.group)] += !place.isFirst();
    }
    std::vector<InformationWriter> writers(InformationColumnCount, InformationWriter(0));
    std::generate(writers.begin(), writers.end(), [rowCount] { return InformationWriter(rowCount); });
    int row = 0;
    for (const DuplicateSearch::Place &place : search.places()) {
        writers[Group].appendNumber(place.group + 1);
        writers[Row].appendNumber(++row);
        writers[Duplicate].appendBool(!place.isFirst());
        if (place.isFirst()) {
            writers[Closeness].appendEmpty();
            writers[Duplicates].appendNumber(duplicatesOf[static_cast<size_t>(place.group)]);
        } else {
            writers[Closeness].appendNumber(place.closeness);
            writers[Duplicates].appendEmpty();
        }
    }
    Dataset result = sharedCopy(dataset);
    result.setRowCount(rowCount);
    const int first = dataset.columnCount();
    appendDuplicateColumns(result);
    for (int i = 0; i < InformationColumnCount; ++i) {
        result.setColumn(ColumnIndex(first + i), writers[static_cast<size_t>(i)].column());
    }
    const auto number = [first](InformationColumn column) { return first + column + 1; };
    RowSorting sorting;
    sorting.columns = {number(Group), number(Duplicate), -number(Closeness), number(Row)};
    sorting.dateFormats = dateFormats();
    result.sortRows(sorting);
    return result;
}

} // namespace

Dataset findDuplicates(
    DedupeProgress *progress, const Dataset &dataset, const DuplicateRules &rules, int *nonDupesFound, int *dupesFound)
{
    const DedupeMode mode = rules.mode;
    DuplicateSearch search(dataset, rules.columns, rules.folding, *progress);
    if (rules.closeness >= exact) {
        search.runExactly(progress);
    } else {
        search.runSimilarly(progress, rules.closeness,
            mode == DedupeMode::AddInformation ? DuplicateSearch::ClosestGroup : DuplicateSearch::AnyGroup);
    }
    Dataset result;
    if (mode == DedupeMode::AddInformation) {
        result = withInformation(dataset, search);
    } else {
        const QVector<int> rows = rowsThat(search, mode == DedupeMode::RemoveDuplicates);
        result = rows.size() == dataset.rowCount() ? sharedCopy(dataset) : dataset.withRows(rows);
        if (rules.drilldown && mode == DedupeMode::RemoveDuplicates && rules.closeness >= exact) {
            addDrilldown(result, search);
        }
    }
    *nonDupesFound = search.groupCount();
    *dupesFound = search.duplicateCount();
    if (!dataset.isEmpty()) {
        emit progress->processed(1.0);
    }
    emit progress->processed(1.0, *nonDupesFound, *dupesFound);
    return result;
}

QStringList rowKey(const Dataset &dataset, RowIndex row, const QVector<ColumnIndex> &columns, bool caseSensitive,
    bool ignoreSpaces, bool ignorePunctuation)
{
    QVector<ColumnIndex> ordered = columns;
    std::sort(ordered.begin(), ordered.end());
    const KeyFolding folding{caseSensitive, ignoreSpaces, ignorePunctuation};
    QStringList key;
    for (const ColumnIndex column : qAsConst(ordered)) {
        key.append(folding.folded(dataset.value(row, column)));
    }
    return key;
}

void appendDuplicateColumns(Dataset &dataset)
{
    for (const char *name : {"Group", "Row", "Closeness", "Duplicate", "Duplicates"}) {
        dataset.appendEmptyColumn();
        dataset.setHeaderValue(dataset.lastColumn(), QString::fromLatin1(name));
    }
}
