#include "transforms/row/termmatcher.h"

#include "data/dataset.h"

#include <algorithm>

static constexpr int mostMemoBits = 10;

TermMatcher::TermMatcher(
    const Dataset &dataset, const FilterTerm &term, const QHash<ColumnIndex, QString> &dateFormats, bool caseSensitive)
    : m_dataset(dataset)
    , m_template(dataset, term.text)
{
    for (const ColumnIndex column : columns(dataset, {term})) {
        addColumn(column, term, dateFormats.value(column), caseSensitive);
    }
}

TermMatcher::~TermMatcher() = default;

bool TermMatcher::isActive(const FilterTerm &term)
{
    return !term.text.isEmpty() || MatchOperators::worksWithEmptyText(term.op);
}

QVector<ColumnIndex> TermMatcher::columns(const Dataset &dataset, const QList<FilterTerm> &terms)
{
    QVector<ColumnIndex> columns;
    for (const FilterTerm &term : terms) {
        if (term.column.isNull()) {
            const QList<ColumnIndex> all = dataset.allColumns();
            return QVector<ColumnIndex>(all.cbegin(), all.cend());
        }
        const ColumnIndex column = dataset.columnIndexOfId(term.column);
        if (column.isValid() && !columns.contains(column)) {
            columns.append(column);
        }
    }
    return columns;
}

void TermMatcher::addColumn(ColumnIndex column, const FilterTerm &term, const QString &dateFormat, bool caseSensitive)
{
    const auto known = std::find(m_formats.cbegin(), m_formats.cend(), dateFormat);
    const auto at = static_cast<size_t>(known - m_formats.cbegin());
    if (known == m_formats.cend()) {
        m_formats.push_back(dateFormat);
        m_matches.push_back(std::make_unique<PreparedMatch>(term.op, term.text, dateFormat, dateFormat, caseSensitive));
        m_memories.push_back(m_matches.back()->isSlow()
                                 ? std::make_unique<CellMemo<bool>>(m_dataset.rowCount(), mostMemoBits)
                                 : nullptr);
    }
    m_columns.push_back({m_dataset.column(column).cells.constData(), m_matches[at].get(), m_memories[at].get()});
}

void TermMatcher::expandText(int row)
{
    m_template.write(m_dataset, RowIndex(row), m_text);
    if (m_isExpanded && m_text == m_textBefore) {
        return;
    }
    m_isExpanded = true;
    m_textBefore = m_text;
    const QString text = TextCoding::decode(m_text.constData(), m_text.size());
    for (const auto &match : m_matches) {
        match->setText(text);
    }
    for (const auto &memory : m_memories) {
        if (memory) {
            memory->clear();
        }
    }
}

bool TermMatcher::matches(const TestedColumn &column, const Cell &cell)
{
    const auto find = [&column](const Cell &tested, bool &isHeld) { isHeld = column.match->matches(tested); };
    return column.memory ? column.memory->of(cell, find) : column.match->matches(cell);
}

bool TermMatcher::holds(int row)
{
    if (!m_template.isConstant()) {
        expandText(row);
    }
    return std::any_of(m_columns.cbegin(), m_columns.cend(),
        [row](const TestedColumn &column) { return matches(column, column.cells[row]); });
}
