#pragma once

#include "data/indexes.h"
#include "panes/editors/recordparameterwidget.h"

/// The columns upstream in an order of the person's own: by dragging, keys or buttons.
class ReorderColumnsParameterWidget : public RecordParameterWidget
{
    Q_OBJECT

public:
    ReorderColumnsParameterWidget(Parameter &parameter, Node &node, QWidget *parent = nullptr);

    void refresh() override;
    QVariant value() const override;

private:
    /// The columns upstream in the option's order; new ones come last.
    QList<ColumnId> presentOrder() const;
};
