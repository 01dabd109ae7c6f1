#include "panes/editors/splitrowsparameterwidget.h"

#include "transforms/options/parameter.h"

#include <QLayout>
#include <QPaintEvent>

namespace {

/// Room for the frame of an option that isn't set.
constexpr int margin = 4;

} // namespace

SplitRowsParameterWidget::SplitRowsParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : SplitRowsWidget(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    layout()->setContentsMargins(margin, margin, margin, margin);
    refresh();
    connect(this, &SplitRowsWidget::changed, this, &SplitRowsParameterWidget::onChanged);
}

void SplitRowsParameterWidget::refresh()
{
    setColumns(ColumnList::of(parameter()->node()));
    setRecord(parameter()->toSplitRows());
    update();
}

QVariant SplitRowsParameterWidget::value() const
{
    return record() == parameter()->toSplitRows() ? parameter()->value() : QVariant::fromValue(record());
}

void SplitRowsParameterWidget::onChanged()
{
    if (commit()) {
        emit parameterValueChanged(true);
    }
    update();
}

void SplitRowsParameterWidget::paintEvent(QPaintEvent *event)
{
    SplitRowsWidget::paintEvent(event);
    paintUnsetFrame(*this);
}
