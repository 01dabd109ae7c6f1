#include "panes/editors/intparameterwidget.h"

#include "panes/widgets/wheelguard.h"
#include "transforms/options/parameter.h"

#include <QPaintEvent>
#include <QSignalBlocker>

namespace {

constexpr int wideStepsFrom = 50;
constexpr int wideStep = 10;

} // namespace

IntParameterWidget::IntParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : QSpinBox(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    guardFromWheel(*this);
    setRange(parameter.minInt(), parameter.maxInt());
    setSuffix(parameter.suffix());
    setSpecialValueText(parameter.minText());
    setGroupSeparatorShown(true);
    setSingleStep(parameter.toInt() < wideStepsFrom ? 1 : wideStep);
    refresh();
    connect(this, QOverload<int>::of(&QSpinBox::valueChanged), this, &IntParameterWidget::onChanged);
    connect(this, &QSpinBox::editingFinished, this, &IntParameterWidget::userInteraction);
}

void IntParameterWidget::refresh()
{
    const QSignalBlocker blocker(this);
    setValue(parameter()->toInt());
    update();
}

QVariant IntParameterWidget::value() const
{
    return QSpinBox::value();
}

void IntParameterWidget::onChanged()
{
    if (commit()) {
        emit parameterValueChanged(true);
    }
    update();
}

void IntParameterWidget::paintEvent(QPaintEvent *event)
{
    QSpinBox::paintEvent(event);
    paintUnsetFrame(*this);
}
