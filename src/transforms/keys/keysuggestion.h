#pragma once

#include "data/indexes.h"

#include <QHash>
#include <QPair>
#include <QStringList>
#include <QVector>

class Dataset;
class Parameter;

// Guesses which columns of two tables hold the same keys, and which columns hold dates.

using ColumnPairs = QVector<QPair<ColumnIndex, ColumnIndex>>;

/// Sets two SingleColumn options, bound to the top and the bottom table, to the columns whose values overlap best; with
/// `strict` only when a good part of the rows does. False, and nothing set, when no pair is good enough or a table has
/// more than 10000 rows.
bool suggestKeyColumns(Parameter *first, Parameter *second, bool strict);
/// At most `limit` pairs of columns that could be keys, likely ones by their names first.
ColumnPairs keyColumnPairs(const Dataset &top, const Dataset &bottom, int limit, const QStringList &dateFormats);
/// True unless one of the first 50 values holds a blank, a full stop or a comma, or the column holds dates.
bool isKeyLikeColumn(const Dataset &dataset, ColumnIndex column, const QStringList &dateFormats);

/// For each of `columns` that holds dates, the first of the settings' formats that fits its first 50 values.
QHash<ColumnIndex, QString> dateColumnFormats(const Dataset &dataset, const QVector<ColumnIndex> &columns);
