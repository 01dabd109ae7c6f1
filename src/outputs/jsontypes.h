#pragma once

#include "data/indexes.h"

#include <QHash>
#include <QString>
#include <QStringList>

class Dataset;

/// What the values of a column are in JSON. The numbers stand in documents.
namespace JsonColumnType {
enum { Automatic = 0, Boolean = 1, Number = 2, String = 3, RawData = 4 };
QStringList labels();
/// Empty for a number outside the table.
QString label(int type);
} // namespace JsonColumnType

/// A JsonColumnType by column number from 0; a column left out is Automatic, which is written as String.
using JsonColumnTypes = QHash<int, int>;

/// The types of a dataset's columns with none left Automatic: `mode` is a JsonTypeMode, `chosen` the types by hand. An
/// Automatic column is judged by the first 100 rows.
JsonColumnTypes automaticJsonTypes(const Dataset &dataset, int mode, const QHash<ColumnId, int> &chosen);
