#pragma once

#include "panes/editors/parameterwidget.h"
#include "panes/widgets/realspinbox.h"

/// A number.
class RealParameterWidget : public RealSpinBox, public ParameterWidget
{
    Q_OBJECT

public:
    RealParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

public slots:
    void onChanged();

signals:
    void parameterValueChanged(bool startTimer);
    void processNow();
    void userInteraction();

protected:
    void paintEvent(QPaintEvent *event) override;
};
