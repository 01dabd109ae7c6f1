#pragma once

#include "panes/editors/parameterwidget.h"

#include <QDoubleSpinBox>

/// A number.
class RealParameterWidget : public QDoubleSpinBox, public ParameterWidget
{
    Q_OBJECT

public:
    RealParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    QString textFromValue(double number) const override;
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
