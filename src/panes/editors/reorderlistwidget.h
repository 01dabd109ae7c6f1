#pragma once

#include "panes/widgets/recordtablewidget.h"

/// The list of columns that can be moved, neither added nor removed.
class ReorderListWidget : public RecordTableWidget
{
    Q_OBJECT

public:
    explicit ReorderListWidget(QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
