#pragma once

#include "panes/widgets/recordtablewidget.h"

struct FilterTerm;

/// The table of a filter option: column, operator and value.
class FilterColumnsTableWidget : public RecordTableWidget
{
    Q_OBJECT

public:
    explicit FilterColumnsTableWidget(QWidget *parent = nullptr);

    /// Why a value makes no sense for a match operation; empty when it does.
    static QString matchFault(int op, const QString &text);
    static Record recordOf(const FilterTerm &term);
    static FilterTerm termOf(const Record &record);

protected:
    using RecordTableWidget::recordOf;
};
