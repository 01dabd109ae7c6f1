#include "panes/editors/multiplecolumnsparameterwidget.h"

#include "panes/widgets/columnslistwidget.h"
#include "transforms/options/parameter.h"

MultipleColumnsParameterWidget::MultipleColumnsParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : MultipleColumnsWidget(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    list().setAccessibleName(parameter.label());
    list().setToolTip(parameter.toolTip());
    list().setOverlay([this](QWidget &viewport) { paintUnsetFrame(viewport); });
    refresh();
    connect(this, &MultipleColumnsWidget::columnsChanged, this, &MultipleColumnsParameterWidget::onChanged);
}

void MultipleColumnsParameterWidget::refresh()
{
    setSource(parameter()->node());
    setChecked(parameter()->value().value<QList<ColumnId>>());
    list().viewport()->update();
}

QVariant MultipleColumnsParameterWidget::value() const
{
    const auto stored = parameter()->value().value<QList<ColumnId>>();
    QList<ColumnId> ids = checkedColumns();
    const QSet<ColumnId> there(ids.cbegin(), ids.cend());
    QSet<ColumnId> kept;
    for (const ColumnId id : stored) {
        // A column that has gone for now stays chosen.
        if (isChecked(id) && !there.contains(id) && !kept.contains(id)) {
            ids.append(id);
        }
        kept.insert(id);
    }
    const QSet<ColumnId> all(ids.cbegin(), ids.cend());
    return all == kept ? parameter()->value() : QVariant::fromValue(ids);
}

void MultipleColumnsParameterWidget::onChanged()
{
    if (commit()) {
        emit parameterValueChanged(true);
    }
    list().viewport()->update();
}
