#include "panes/editors/realparameterwidget.h"

#include "transforms/options/parameter.h"

#include <QPaintEvent>
#include <QSignalBlocker>

RealParameterWidget::RealParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : RealSpinBox(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    setRange(parameter.minReal(), parameter.maxReal());
    setSuffix(parameter.suffix());
    refresh();
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &RealParameterWidget::onChanged);
    connect(this, &QDoubleSpinBox::editingFinished, this, &RealParameterWidget::userInteraction);
}

void RealParameterWidget::refresh()
{
    const QSignalBlocker blocker(this);
    setValue(parameter()->toReal());
    update();
}

QVariant RealParameterWidget::value() const
{
    return QDoubleSpinBox::value();
}

void RealParameterWidget::onChanged()
{
    if (commit()) {
        emit parameterValueChanged(true);
    }
    update();
}

void RealParameterWidget::paintEvent(QPaintEvent *event)
{
    RealSpinBox::paintEvent(event);
    paintUnsetFrame(*this);
}
