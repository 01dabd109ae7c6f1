#pragma once

#include "panes/editors/parameterwidget.h"
#include "panes/editors/verifyruleswidget.h"

/// The rules of a verification.
class VerifyRulesParameterWidget : public VerifyRulesWidget, public ParameterWidget
{
    Q_OBJECT

public:
    VerifyRulesParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

public slots:
    void onChanged();

signals:
    void parameterValueChanged(bool startTimer);
    void processNow();
};
