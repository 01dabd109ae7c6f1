#include "panes/editors/singlecolumnfilteredparameterwidget.h"

#include "transforms/options/parameter.h"

#include <QPaintEvent>

SingleColumnFilteredParameterWidget::SingleColumnFilteredParameterWidget(
    Parameter &parameter, Node &node, QWidget *parent)
    : SingleColumnFilteredWidget(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    setNoneText(parameter.noneText());
    refresh();
    connect(this, &SingleColumnFilteredWidget::columnChanged, this, &SingleColumnFilteredParameterWidget::onChanged);
}

void SingleColumnFilteredParameterWidget::refresh()
{
    setColumns(ColumnList::of(parameter()->node()));
    setColumn(parameter()->toColumnId());
    update();
}

QVariant SingleColumnFilteredParameterWidget::value() const
{
    // An option that was never set has no value at all.
    return column() == parameter()->toColumnId() ? parameter()->value() : QVariant::fromValue(column());
}

void SingleColumnFilteredParameterWidget::onChanged()
{
    if (commit()) {
        emit parameterValueChanged(true);
    }
    update();
}

void SingleColumnFilteredParameterWidget::paintEvent(QPaintEvent *event)
{
    SingleColumnFilteredWidget::paintEvent(event);
    paintUnsetFrame(*this);
}
