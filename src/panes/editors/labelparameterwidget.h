#pragma once

#include "panes/editors/parameterwidget.h"

#include <QLabel>

/// Words between the options; there is nothing to edit.
class LabelParameterWidget : public QLabel, public ParameterWidget
{
    Q_OBJECT

public:
    LabelParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

signals:
    void parameterValueChanged(bool startTimer);
    void processNow();
    void userInteraction();
};
