#pragma once

#include "panes/editors/parameterwidget.h"

#include <QComboBox>

/// One entry of a list.
class SelectionParameterWidget : public QComboBox, public ParameterWidget
{
    Q_OBJECT

public:
    SelectionParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

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
