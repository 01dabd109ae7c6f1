#pragma once

#include "panes/editors/parameterwidget.h"

#include <QDateEdit>

/// A date, with a calendar.
class DateParameterWidget : public QDateEdit, public ParameterWidget
{
    Q_OBJECT

public:
    DateParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

public slots:
    void onChanged();

signals:
    void parameterValueChanged(bool startTimer);
    void processNow();
    void userInteraction();
};
