#pragma once

#include "panes/editors/parameterwidget.h"

#include <QCheckBox>

/// A yes or no.
class BoolParameterWidget : public QCheckBox, public ParameterWidget
{
    Q_OBJECT

public:
    BoolParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

public slots:
    void onChanged();

signals:
    void parameterValueChanged(bool startTimer);
    void processNow();
    void userInteraction();

protected:
    void changeEvent(QEvent *event) override;

private:
    /// Draws attention to some options while they are checked.
    void updateColor();
};
