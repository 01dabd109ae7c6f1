#include "panes/explore/explorekeysbutton.h"

#include "graph/node.h"
#include "panes/dialogs/prompts.h"
#include "panes/explore/exploreditems.h"
#include "panes/explore/explorekeysdialog.h"
#include "panes/widgets/tips.h"
#include "platform/waitcursor.h"
#include "transforms/frame/transform.h"
#include "transforms/options/parameter.h"

#include <memory>

namespace {

constexpr int tipMs = 20000;

const Node *itemOf(const Parameter *key)
{
    return key ? dynamic_cast<const Node *>(key->node()) : nullptr;
}

bool isChosen(const Transform &transform, const QString &name)
{
    const Parameter *key = transform.parameter(name);
    const QList<QPair<QString, bool>> states = transform.parameterStates();
    return itemOf(key) && key->toColumnNumber().isValid() && !states.contains({name, false});
}

ExploreKeysDialog::Source sourceOf(const Parameter &key)
{
    const Node &item = *itemOf(&key);
    const Dataset &table = item.datasetConst();
    const ColumnIndex column = table.columnIndexOfId(key.toColumnId());
    return {QStringLiteral("'%1' in %2").arg(table.columnName(column), ExploredItems::label(item)), table, column};
}

} // namespace

ExploreKeysButton::ExploreKeysButton(const Transform &transform, QWidget *parent)
    : QPushButton(QStringLiteral("Explore &Keys..."), parent)
    , m_transform(transform)
{
    setAutoDefault(false);
    refresh();
}

void ExploreKeysButton::refresh()
{
    const bool canExplore = isChosen(m_transform, m_transform.firstKeyParameterName())
                            && isChosen(m_transform, m_transform.secondKeyParameterName());
    const QString tip = QStringLiteral("Explore which keys match and which are duplicated.");
    setEnabled(canExplore);
    setToolTip(canExplore ? tip : tip + QStringLiteral("\nChoose both key columns to enable."));
    // A tip at a button that is scrolled out of sight would point at something else.
    if (canExplore && !visibleRegion().isEmpty()) {
        Tips::showOnce(QStringLiteral("tip_explore_keys"), QStringLiteral("Explore keys"),
            QStringLiteral("Click here to see which keys match and which are duplicated."), tipMs, this);
    }
}

void ExploreKeysButton::explore(Prompts &prompts) const
{
    const Parameter *first = m_transform.parameter(m_transform.firstKeyParameterName());
    const Parameter *second = m_transform.parameter(m_transform.secondKeyParameterName());
    if (!itemOf(first) || !itemOf(second) || !first->toColumnNumber().isValid()
        || !second->toColumnNumber().isValid()) {
        return;
    }
    const Parameter *cases = m_transform.parameter(m_transform.caseSensitiveParameterName());
    std::unique_ptr<ExploreKeysDialog> dialog;
    {
        const WaitCursor cursor;
        dialog = std::make_unique<ExploreKeysDialog>(
            sourceOf(*first), sourceOf(*second), !cases || cases->toBool(), prompts.window());
    }
    prompts.exec(*dialog);
}
