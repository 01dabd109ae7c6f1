#pragma once

#include <QString>
#include <QStringList>

/// The columns that an input is expected to have, and what happens when it has others. The numbers stand in documents.
struct InputSchema
{
    enum MissingMode { AddMissing = 0, MissingIsError = 1 };
    enum ReorderMode { Reorder = 0, OrderIsError = 1 };
    enum ExtraMode { AddExtra = 0, IgnoreExtra = 1, ExtraIsError = 2 };

    bool inUse = false;
    QStringList columnNames;   ///< in order; case and whitespace count
    QStringList missingValues; ///< what an added column holds, by position in columnNames; a single one is for all
    int missingMode = AddMissing;
    int reorderMode = Reorder;
    int extraMode = AddExtra;

    /// What the column at a position of columnNames holds when it had to be added.
    QString missingValue(int position) const
    {
        return missingValues.size() == 1 ? missingValues.first() : missingValues.value(position);
    }
};
