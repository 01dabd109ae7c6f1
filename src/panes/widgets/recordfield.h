#pragma once

#include <QStringList>
#include <QVariantList>

#include <functional>

/// What one column of a table of records holds.
struct RecordField
{
    enum Kind {
        Text,   ///< a QString, typed
        Choice, ///< an int, the place of a text in `choices`
        Column, ///< a ColumnId, chosen from the columns of a table; null for none
        Flag,   ///< a bool, with a check mark
        Label   ///< a QString that can't be edited
    };

    QString title;
    Kind kind = Text;
    QString toolTip;
    QStringList choices;
    QString noneText; ///< what stands for no column
    /// Why a record's value makes no sense here, such as an expression that isn't valid; empty when it does. Null for
    /// anything goes.
    std::function<QString(const QVariantList &record)> fault;
};
