#pragma once

#include "panes/editors/parameterwidget.h"

#include <QWidget>

class QComboBox;

/// One character, with names for those that can't be seen.
class CharParameterWidget : public QWidget, public ParameterWidget
{
    Q_OBJECT

public:
    CharParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

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

private:
    QComboBox *m_choice;
};
