#include "panes/editors/realparameterwidget.h"

#include "panes/widgets/wheelguard.h"
#include "transforms/options/parameter.h"

#include <QPaintEvent>
#include <QSignalBlocker>

namespace {

constexpr int decimalPlaces = 6;
constexpr int significantDigits = 10;

} // namespace

RealParameterWidget::RealParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : QDoubleSpinBox(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    guardFromWheel(*this);
    setDecimals(decimalPlaces);
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
    QDoubleSpinBox::paintEvent(event);
    paintUnsetFrame(*this);
}

QString RealParameterWidget::textFromValue(double number) const
{
    return locale().toString(number, 'g', significantDigits);
}
