#pragma once

#include "data/dataset.h"
#include "support/printers.h"

#include <QStringList>

/// A table from lines of cells separated by '|'; the first line is the header, which sets the width.
Dataset grid(const QStringList &lines);

/// As grid, but every line is a row; the first sets the width.
Dataset plainGrid(const QStringList &lines);

/// The rows as lines of cells separated by '|', without the header.
QStringList rows(const Dataset &dataset);

/// A table of one column named "Value".
Dataset column(const QStringList &cells);
/// The same with a single cell.
Dataset column(const QString &cell);
Dataset column(const char *cell);
