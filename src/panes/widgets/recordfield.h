#pragma once

#include <QStringList>

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
};
