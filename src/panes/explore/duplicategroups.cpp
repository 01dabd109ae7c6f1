#include "panes/explore/duplicategroups.h"

#include "transforms/frame/messages.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace {

/// Writes a column of numbers.
class NumberColumn
{
public:
    explicit NumberColumn(int rowCount)
    {
        m_column.keep(m_arena);
        m_column.cells.reserve(rowCount);
    }
    void append(int number)
    {
        char digits[16];
        const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        m_column.cells.append(m_arena->store(digits, static_cast<int>(end - digits)));
    }
    void appendEmpty() { m_column.cells.append(Cell()); }
    const CellColumn &column() const { return m_column; }

private:
    CellColumn m_column;
    TextArenaPointer m_arena{new TextArena};
};

} // namespace

DuplicateGroups::DuplicateGroups(std::vector<DuplicateSearch::Place> places)
    : m_places(std::move(places))
{
    const int rowCount = static_cast<int>(m_places.size());
    for (int row = 0; row < rowCount; ++row) {
        if (place(row).isFirst()) {
            m_firsts.push_back(row);
            m_sizes.push_back(0);
        }
        ++m_sizes[static_cast<size_t>(place(row).group)];
    }
    std::vector<int> next; // where the next row of each group goes
    next.reserve(m_sizes.size());
    int begin = 0;
    for (const int size : m_sizes) {
        next.push_back(begin);
        begin += size;
    }
    m_rows.resize(rowCount);
    for (int row = 0; row < rowCount; ++row) {
        m_rows[next[static_cast<size_t>(place(row).group)]++] = row;
    }
    auto from = m_rows.begin();
    for (const int size : m_sizes) {
        std::stable_sort(
            from + 1, from + size, [this](int a, int b) { return place(a).closeness > place(b).closeness; });
        from += size;
    }
}

QVector<int> DuplicateGroups::rowsWithDuplicates() const
{
    QVector<int> rows;
    for (const int row : m_rows) {
        if (sizeOf(place(row).group) > 1) {
            rows.append(row);
        }
    }
    return rows;
}

std::vector<bool> DuplicateGroups::duplicates() const
{
    std::vector<bool> are;
    are.reserve(m_places.size());
    for (const DuplicateSearch::Place &place : m_places) {
        are.push_back(!place.isFirst());
    }
    return are;
}

Dataset DuplicateGroups::describe(const Dataset &dataset) const
{
    const int rowCount = dataset.rowCount();
    NumberColumn closeness(rowCount);
    NumberColumn matches(rowCount);
    NumberColumn occurrences(rowCount);
    for (int row = 0; row < rowCount; ++row) {
        if (row >= m_rows.size()) {
            closeness.appendEmpty();
            matches.appendEmpty();
            occurrences.appendEmpty();
            continue;
        }
        occurrences.append(sizeOf(place(row).group));
        if (place(row).isFirst()) {
            closeness.appendEmpty();
            matches.appendEmpty();
        } else {
            closeness.append(place(row).closeness);
            matches.append(m_firsts[static_cast<size_t>(place(row).group)] + 1);
        }
    }
    Dataset result = dataset;
    result.clearDrilldown();
    result.clearIssues();
    const auto add = [&result](const char *name, const NumberColumn &numbers) {
        result.appendEmptyColumn();
        result.setHeaderValue(result.lastColumn(), QString::fromLatin1(name));
        result.setColumn(result.lastColumn(), numbers.column());
    };
    add("Closeness", closeness);
    add("Matches", matches);
    add("Occurrences", occurrences);
    return result;
}

QStringList DuplicateGroups::summary() const
{
    std::map<int, int, std::greater<>> ofCloseness;
    for (const DuplicateSearch::Place &place : m_places) {
        if (!place.isFirst()) {
            ++ofCloseness[place.closeness];
        }
    }
    std::map<int, int> ofDuplicates;
    for (const int size : m_sizes) {
        ++ofDuplicates[size - 1];
    }
    QStringList lines;
    for (const auto &[closeness, count] : ofCloseness) {
        lines.append(QStringLiteral("%1 matched with %2% closeness.")
                         .arg(Messages::counted(count, "duplicate row", "duplicate rows"))
                         .arg(closeness));
    }
    for (const auto &[duplicates, count] : ofDuplicates) {
        lines.append(QStringLiteral("%1 with %2.")
                         .arg(Messages::counted(count, "non-duplicate row", "non-duplicate rows"),
                             Messages::counted(duplicates, "duplicate", "duplicates")));
    }
    return lines;
}
