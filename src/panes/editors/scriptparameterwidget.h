#pragma once

#include "panes/editors/parameterwidget.h"
#include "panes/editors/scriptwidget.h"

/// A script that is run for each row.
class ScriptParameterWidget : public ScriptWidget, public ParameterWidget
{
    Q_OBJECT

public:
    ScriptParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

public slots:
    void onChanged();

signals:
    void parameterValueChanged(bool startTimer);
    void processNow();

private:
    /// Marks the line that the last run complained of.
    void markError();
};
