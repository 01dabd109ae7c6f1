#pragma once

#include "data/cellcolumn.h"

#include <QJSValue>
#include <QString>

class Dataset;
class ColumnIndex;

/// Hands the cells of one column to a script as values of one of the script's types.
class ScriptArgument
{
public:
    enum Type { Number, Boolean, String };

    /// The type that fits the column's contents.
    static Type typeOf(const Dataset &dataset, ColumnIndex column);
    static QString typeName(Type type);

    ScriptArgument(const Dataset &dataset, ColumnIndex column, Type type);

    Type type() const { return m_type; }
    const QString &columnName() const { return m_columnName; }
    QString text(int row) const { return m_cells.at(row).text(); }
    /// The row's value; undefined, and `*ok` false, when the text isn't of the type.
    QJSValue value(int row, bool *ok) const;

private:
    CellColumn m_cells;
    QString m_columnName;
    Type m_type;
};
