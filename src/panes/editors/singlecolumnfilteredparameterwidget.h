#pragma once

#include "panes/editors/parameterwidget.h"
#include "panes/widgets/singlecolumnfilteredwidget.h"

/// One column of the table upstream.
class SingleColumnFilteredParameterWidget : public SingleColumnFilteredWidget, public ParameterWidget
{
    Q_OBJECT

public:
    SingleColumnFilteredParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

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
