#pragma once

#include <vector>

/// The rows of a table in numbered groups.
class RowGroups
{
public:
    /// Some row numbers that lie one behind the other.
    class Rows
    {
    public:
        Rows(const int *begin, const int *end)
            : m_begin(begin)
            , m_end(end)
        {
        }
        const int *begin() const { return m_begin; }
        const int *end() const { return m_end; }
        int size() const { return static_cast<int>(m_end - m_begin); }
        bool isEmpty() const { return m_begin == m_end; }
        int first() const { return *m_begin; }
        int last() const { return m_end[-1]; }

    private:
        const int *m_begin;
        const int *m_end;
    };

    /// `groupOfRow` has the group's number, below `groupCount`, for each row, -1 for a row in none. Within a group rows
    /// are ascending.
    RowGroups(const std::vector<int> &groupOfRow, int groupCount);
    /// The same with only the rows in `order`; within a group rows have its order.
    RowGroups(const std::vector<int> &groupOfRow, int groupCount, const Rows &order);

    int count() const { return static_cast<int>(m_begins.size()) - 1; }
    Rows rows(int group) const
    {
        const auto at = static_cast<size_t>(group);
        return {m_rows.data() + m_begins[at], m_rows.data() + m_begins[at + 1]};
    }
    /// Group after group.
    Rows all() const { return {m_rows.data(), m_rows.data() + m_rows.size()}; }

private:
    template<class ForEachRow>
    void fill(const std::vector<int> &groupOfRow, int groupCount, ForEachRow forEachRow);

    std::vector<int> m_rows;
    std::vector<int> m_begins;
};
