#pragma once

#include "panes/editors/parameterwidget.h"
#include "panes/widgets/multiplecolumnswidget.h"

/// Several columns of the table upstream.
class MultipleColumnsParameterWidget : public MultipleColumnsWidget, public ParameterWidget
{
    Q_OBJECT

public:
    MultipleColumnsParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

public slots:
    void onChanged();

signals:
    void parameterValueChanged(bool startTimer);
    void processNow();
};
