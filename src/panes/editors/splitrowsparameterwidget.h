#pragma once

#include "panes/editors/parameterwidget.h"
#include "panes/editors/splitrowswidget.h"

/// Where rows are split.
class SplitRowsParameterWidget : public SplitRowsWidget, public ParameterWidget
{
    Q_OBJECT

public:
    SplitRowsParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

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
