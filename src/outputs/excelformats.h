#pragma once

#include "data/indexes.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

class Dataset;

/// What the values of a column become in a sheet. The numbers stand in documents.
namespace ExcelColumnFormat {
enum { Automatic = 0, Boolean = 1, Date = 2, General = 3, Number = 4, Text = 5, Formula = 6, Time = 7, Hyperlink = 8 };
QStringList labels();
/// Empty for a number outside the table.
QString label(int format);
} // namespace ExcelColumnFormat

/// How the columns of a table are written to a sheet, by column number from 0.
struct ExcelFormats
{
    QHash<int, int> formats;         ///< an ExcelColumnFormat; a column left out is Text
    QHash<int, QString> dateFormats; ///< how the values of a Date column read
    QVector<int> automatic = {};     ///< columns whose format was chosen by their values
};

/// The formats of a dataset's columns with none left Automatic: `mode` is an ExcelFormatMode, `chosen` the formats by
/// hand. An Automatic column is judged by its first values.
ExcelFormats automaticExcelFormats(const Dataset &dataset, int mode, const QHash<ColumnId, int> &chosen);
