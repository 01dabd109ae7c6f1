#pragma once

#include "panes/widgets/recordtablewidget.h"

/// One row for each column of a table: its name, what is done with it, and, hidden, its id.
class ColumnsTableWidget : public RecordTableWidget
{
    Q_OBJECT

public:
    enum Column { Name, Value, Id };

    /// `value` is what there is to edit.
    explicit ColumnsTableWidget(const RecordField &value, QWidget *parent = nullptr);
    /// Gives the selected rows, or all when there are fewer than two, a value, as one edit.
    void setValues(const std::function<QVariant(const Record &record)> &valueOf);
    /// Gives the current row and those below it these texts, as one edit.
    void setValuesFrom(const QStringList &texts);
};
