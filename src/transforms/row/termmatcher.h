#pragma once

#include "data/preparedmatch.h"
#include "data/variabletemplate.h"
#include "transforms/frame/cellmemo.h"
#include "transforms/options/records.h"

#include <memory>
#include <vector>

class Dataset;

/// One condition on the rows of a table, made ready for a loop over them: an operator and a text, which may hold
/// column variables, on one column or, for the null column, on each until one holds. A column that has gone fails.
class TermMatcher
{
public:
    /// `dateFormats` are those of the columns that hold dates. The table must stay as it is.
    TermMatcher(const Dataset &dataset, const FilterTerm &term, const QHash<ColumnIndex, QString> &dateFormats,
        bool caseSensitive);
    ~TermMatcher();
    Q_DISABLE_COPY(TermMatcher)

    bool holds(int row);

    /// Whether a filter looks at the term at all: it has a text or an operator that needs none.
    static bool isActive(const FilterTerm &term);
    /// The columns that the terms look at: those of `dataset` that they name, all when one names none.
    static QVector<ColumnIndex> columns(const Dataset &dataset, const QList<FilterTerm> &terms);

private:
    struct TestedColumn
    {
        const Cell *cells;
        PreparedMatch *match;
        CellMemo<bool> *memory;
    };
    void addColumn(ColumnIndex column, const FilterTerm &term, const QString &dateFormat, bool caseSensitive);
    void expandText(int row);
    static bool matches(const TestedColumn &column, const Cell &cell);

    const Dataset &m_dataset;
    VariableTemplate m_template;
    TextBuffer m_text;
    TextBuffer m_textBefore;
    bool m_isExpanded = false;
    std::vector<TestedColumn> m_columns;
    std::vector<std::unique_ptr<PreparedMatch>> m_matches; ///< one for each date format
    std::vector<QString> m_formats;
    std::vector<std::unique_ptr<CellMemo<bool>>> m_memories;
};
