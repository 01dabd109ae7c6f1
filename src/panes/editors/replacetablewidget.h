#pragma once

#include "panes/widgets/recordtablewidget.h"

struct ReplaceTerm;

/// The table of an option of replace terms: match type, what is replaced, and with what.
class ReplaceTableWidget : public RecordTableWidget
{
    Q_OBJECT

public:
    explicit ReplaceTableWidget(QWidget *parent = nullptr);

    static Record recordOf(const ReplaceTerm &term);
    static ReplaceTerm termOf(const Record &record);

protected:
    /// Match type, find and replace; of two cells find and replace, for a plain text.
    Record recordOf(const QStringList &cells) const override;
};
