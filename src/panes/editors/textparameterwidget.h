#pragma once

#include "panes/editors/parameterwidget.h"
#include "panes/widgets/lineeditwithinsertcontrolchars.h"

/// A line of text.
class TextParameterWidget : public LineEditWithInsertControlChars, public ParameterWidget
{
    Q_OBJECT

public:
    TextParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

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
