#include "panes/canvas/transformchoice.h"

#include "graph/graphscene.h"
#include "graph/node.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"

#include <QStringList>
#include <algorithm>
#include <memory>

namespace {

QVector<TransformChoice> makeAll()
{
    QVector<TransformChoice> choices;
    for (const CatalogueRow &row : Catalogue::rows()) {
        const std::unique_ptr<Transform> prototype(Catalogue::create(QString::fromLatin1(row.typeName)));
        if (prototype) {
            choices.append({prototype->typeName(), prototype->displayName(), prototype->description(),
                prototype->category(), prototype->minInputs(), prototype->maxInputs()});
        }
    }
    return choices;
}

bool hasWordBeginning(const QString &name, const QString &beginning)
{
    const QStringList words = name.split(QLatin1Char(' '));
    return std::any_of(words.cbegin(), words.cend(),
        [&](const QString &word) { return word.startsWith(beginning, Qt::CaseInsensitive); });
}

} // namespace

const QVector<TransformChoice> &TransformChoice::all()
{
    static const QVector<TransformChoice> choices = makeAll();
    return choices;
}

QVector<TransformChoice> TransformChoice::matching(const QString &typed)
{
    const QStringList words = typed.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QVector<TransformChoice> found;
    for (const TransformChoice &choice : all()) {
        if (std::all_of(words.cbegin(), words.cend(),
                [&](const QString &word) { return hasWordBeginning(choice.displayName, word); })) {
            found.append(choice);
        }
    }
    const QString whole = typed.trimmed();
    std::stable_partition(found.begin(), found.end(),
        [&](const TransformChoice &choice) { return choice.displayName.startsWith(whole, Qt::CaseInsensitive); });
    return found;
}

bool TransformChoice::fits(const GraphScene &scene) const
{
    int counts[5] = {};
    for (const Node *node : scene.nodes(true)) {
        ++counts[node->type() - ItemType::Input];
    }
    const int items = counts[0] + counts[1];
    if (counts[2] + counts[3] + counts[4] > 0) {
        return false;
    }
    const bool isInsertion = scene.connections(true).size() == 1 && items == 0 && maxInputs >= 1;
    return isInsertion || (items >= minInputs && items <= maxInputs);
}
