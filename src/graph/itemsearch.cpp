#include "graph/itemsearch.h"

#include "graph/node.h"

#include <algorithm>

namespace {

ItemSearch::Kind kindOf(const Node &node)
{
    switch (node.type()) {
    case ItemType::Input:
        return ItemSearch::Inputs;
    case ItemType::Transform:
        return ItemSearch::Transforms;
    case ItemType::Output:
        return ItemSearch::Outputs;
    case ItemType::Chart:
        return ItemSearch::Charts;
    default:
        return ItemSearch::Notes;
    }
}

} // namespace

QStringList ItemSearch::termsOf(const QString &text)
{
    QStringList terms;
    QString term;
    bool isQuoted = false;
    const auto finish = [&] {
        if (!term.isEmpty()) {
            terms.append(term);
            term.clear();
        }
    };
    for (const QChar c : text.trimmed()) {
        if (c == QLatin1Char('"')) {
            finish();
            isQuoted = !isQuoted;
        } else if (c.isSpace() && !isQuoted) {
            finish();
        } else {
            term.append(c);
        }
    }
    finish();
    return terms;
}

bool ItemSearch::isIn(const Node &node, const QString &term) const
{
    const auto has = [&](const QString &text) { return text.contains(term, sensitivity); };
    if ((places.testFlag(Names) && (has(node.name()) || has(node.listName()) || has(node.alias())))
        || (places.testFlag(Ids) && has(QString::number(node.id())))
        || (places.testFlag(Comments) && has(node.comment()))) {
        return true;
    }
    if (places.testFlag(OptionValues)) {
        const InfoRows rows = node.kindRows() + node.optionRows();
        if (std::any_of(rows.begin(), rows.end(), [&](const InfoRow &row) { return has(row.second); })) {
            return true;
        }
    }
    const Dataset &data = node.datasetConst();
    return (places.testFlag(ColumnNames) && data.headerContains(term, sensitivity))
           || (places.testFlag(DataValues) && data.contains(term, sensitivity));
}

bool ItemSearch::matches(const Node &node) const
{
    const auto found = [&](const QString &term) { return isIn(node, term); };
    return kinds.testFlag(kindOf(node)) && !terms.isEmpty()
           && (join == SearchJoin::All ? std::all_of(terms.begin(), terms.end(), found)
                                       : std::any_of(terms.begin(), terms.end(), found));
}
