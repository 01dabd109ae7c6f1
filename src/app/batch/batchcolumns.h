#pragma once

#include "app/commandlineitems.h"

#include <QStringList>

/// A column of the batch grid: the inputs that share an alias, an output or a chart.
struct BatchColumn
{
    CommandLineItem::Kind kind = CommandLineItem::Input;
    QString alias;
    /// An input that reads a folder.
    bool isFolder = false;
    /// False for an output that takes the names of its files from a column: it has no use for a path.
    bool takesPath = true;
    /// The path of the item itself, for the first row.
    QString ownPath;
    /// What stands over the column.
    QString header;
};

struct BatchColumns
{
    /// Inputs, outputs, charts, each by alias.
    QList<BatchColumn> columns;
    /// A line for each item that has an alias and no column.
    QStringList leftOut;
};

/// The columns for the items of a document.
BatchColumns batchColumns(const QList<CommandLineItem> &items);

/// Why a document with these items can't be run in batches, or empty when it can.
QString batchObstacle(const QList<CommandLineItem> &items);
