#pragma once

#include "panes/editors/recordparameterwidget.h"

/// Columns in order of importance, each ascending or descending unless the option has no such order.
class SortColumnsParameterWidget : public RecordParameterWidget
{
    Q_OBJECT

public:
    SortColumnsParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;
};
