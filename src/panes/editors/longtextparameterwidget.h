#pragma once

#include "panes/editors/parameterwidget.h"

#include <QPlainTextEdit>

/// A text of several lines.
class LongTextParameterWidget : public QPlainTextEdit, public ParameterWidget
{
    Q_OBJECT

public:
    LongTextParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

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
