#pragma once

#include "panes/widgets/recordtablewidget.h"

/// The table of a sort option.
class SortColumnsTableWidget : public RecordTableWidget
{
    Q_OBJECT

public:
    /// `noneText` stands where no column has been chosen yet.
    SortColumnsTableWidget(const QString &noneText, bool hidesOrder, QWidget *parent = nullptr);
};
