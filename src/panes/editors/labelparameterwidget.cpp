#include "panes/editors/labelparameterwidget.h"

#include "transforms/options/parameter.h"

LabelParameterWidget::LabelParameterWidget(Parameter &parameter, Node &node, QWidget *parent)
    : QLabel(parent)
    , ParameterWidget(parameter, node)
{
    describe(*this);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    refresh();
}

void LabelParameterWidget::refresh()
{
    setText(parameter()->label());
}

QVariant LabelParameterWidget::value() const
{
    return parameter()->value();
}
