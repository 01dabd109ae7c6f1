#pragma once

#include "panes/editors/recordparameterwidget.h"

class IfTableWidget;

/// Branches of conditions with a value each, and the value where none holds.
class IfParameterWidget : public RecordParameterWidget
{
    Q_OBJECT

public:
    IfParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

private:
    IfTableWidget &ifTable() const;
};
