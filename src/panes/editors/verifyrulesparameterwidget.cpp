#include "panes/editors/verifyrulesparameterwidget.h"

#include "data/dataset.h"
#include "graph/node.h"
#include "transforms/options/parameter.h"

VerifyRulesParameterWidget::VerifyRulesParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : VerifyRulesWidget(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    refresh();
    connect(this, &VerifyRulesWidget::changed, this, &VerifyRulesParameterWidget::onChanged);
}

void VerifyRulesParameterWidget::refresh()
{
    setRules(parameter()->toVerifyRules(), ColumnList::of(parameter()->node()));
    if (node()) {
        showFails(node()->datasetConst());
    }
}

QVariant VerifyRulesParameterWidget::value() const
{
    return rules() == parameter()->toVerifyRules() ? parameter()->value() : QVariant::fromValue(rules());
}

void VerifyRulesParameterWidget::onChanged()
{
    if (commit()) {
        emit parameterValueChanged(true);
    }
}
