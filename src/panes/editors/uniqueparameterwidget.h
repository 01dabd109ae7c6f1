#pragma once

#include "panes/editors/recordparameterwidget.h"

/// What becomes of each column when rows are grouped.
class UniqueParameterWidget : public RecordParameterWidget
{
    Q_OBJECT

public:
    UniqueParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

private:
    void setSelected(int code);
};
