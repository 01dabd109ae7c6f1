#pragma once

#include "panes/editors/parameterwidget.h"

#include <QSpinBox>

/// A whole number.
class IntParameterWidget : public QSpinBox, public ParameterWidget
{
    Q_OBJECT

public:
    IntParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

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
