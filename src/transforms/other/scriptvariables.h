#pragma once

#include "data/indexes.h"

#include <QStringList>
#include <QVector>

class Dataset;

/// A script whose column variables have become the names of function parameters.
struct ScriptVariables
{
    QString script;
    QVector<ColumnIndex> columns; ///< those that the script names, ascending
    QStringList ambiguousNames;   ///< names in the script that several columns bear; the first column is taken

    /// Name of the parameter that holds the column's value.
    static QString parameterName(ColumnIndex column);
    /// Replaces "$(name)" and, after that, "$(number)" of each column of `dataset`. Case counts; variables that name no
    /// column stay as they are.
    static ScriptVariables resolved(const QString &script, const Dataset &dataset);
};
