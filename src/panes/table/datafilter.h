#pragma once

#include <QString>
#include <QVector>

class Dataset;

/// Which rows and columns of a table contain a text; case doesn't matter.
namespace DataFilter {

/// The rows with the text in one of their cells, in ascending order.
QVector<int> rowsContaining(const Dataset &dataset, const QString &text);
/// The columns with the text in one of their cells.
QVector<int> columnsContaining(const Dataset &dataset, const QString &text);
/// The columns with the text in their names.
QVector<int> columnsNamed(const Dataset &dataset, const QString &text);

} // namespace DataFilter
