#pragma once

#include "data/cellcolumn.h"

#include <QCollator>
#include <vector>

class NumberReader;

/// What rows are sorted by in one column, read once for all rows: dates or numbers where the column holds them, and its
/// texts.
class RowSortKey
{
public:
    enum Type { Text, Number, Date };
    /// How texts are compared.
    struct TextRules
    {
        bool localeAware = false;
        bool caseSensitive = true;
    };
    /// Where two rows may differ still: in the texts behind the parts that are known to be the same.
    using Part = int;
    static constexpr int bytesPerPart = 7;

    /// `dateFormat` is needed for dates alone. Numbers and dates are read under the default locale.
    RowSortKey(const CellColumn &column, Type type, const QString &dateFormat, TextRules rules, bool descending);

    int size() const { return m_column.size(); }
    /// False for a column of dates or numbers with other texts among them: these are compared as texts with all
    /// others, and the order of pairs may have cycles.
    bool isOrder() const { return m_values.empty() || m_valuesDecide; }
    /// Below, at or above 0 as row `a` comes before, with or behind row `b`.
    int compare(int a, int b) const;
    /// Whether two rows share a rank: by date or number when both have one, otherwise by their exact texts.
    bool isSame(int a, int b) const;

    /// For an order: a number that rows are to be sorted by, where all parts before are the same.
    quint64 partOf(int row, Part part) const
    {
        const quint64 ascending = m_comparesBytes ? bytesOf(m_texts[row], part)
                                  : part == 0     ? valueOf(row)
                                                  : restOf(row);
        return m_descending ? ~ascending : ascending;
    }
    /// Whether rows with that number in `part` may differ in the part behind.
    bool continues(quint64 number, Part part) const
    {
        return m_comparesBytes ? ((m_descending ? ~number : number) & 0xFF) > bytesPerPart
                               : part == 0 && !m_rests.empty();
    }

private:
    void readNumbers();
    void readDates(const QString &format);
    void setValue(int row, quint64 value);
    void setRest(int row, double number, const NumberReader &reader);
    void makeBytes(bool caseSensitive);
    void makeRanks(const QCollator &collator);
    int compareTexts(int a, int b) const;
    static quint64 bytesOf(const Cell &cell, Part part);
    quint64 valueOf(int row) const
    {
        return m_values.empty() ? m_ranks[static_cast<size_t>(row)] : m_values[static_cast<size_t>(row)];
    }
    quint64 restOf(int row) const { return m_rests.empty() ? 0 : m_rests[static_cast<size_t>(row)]; }

    CellColumn m_column;
    bool m_descending;
    bool m_valuesDecide = true;    ///< every cell is empty or has a value
    bool m_comparesBytes = false;  ///< the column is text and m_texts gives its order
    std::vector<quint64> m_values; ///< of dates and numbers in their order; 0 for a cell that is none
    std::vector<quint64> m_rests;  ///< order of whole numbers with the same value; empty where all values are exact
    std::vector<quint64> m_ranks;  ///< of texts, in the order of the locale
    CellVector m_ownTexts;
    const Cell *m_texts = nullptr; ///< texts whose order is that of their bytes
    TextArenaPointer m_arena;
};
