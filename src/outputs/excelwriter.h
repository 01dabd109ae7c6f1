#pragma once

#include "outputs/excelformats.h"

#include <functional>

/// One sheet to be written.
struct ExcelWriteRequest
{
    int fileType = 0; ///< of Excel's file types
    QString path;
    QString sheet;
    bool overwriteSheet = false; ///< keep the other sheets of a file that is there
    bool append = false;         ///< with that, write behind the rows of the sheet
    bool writeHeader = true;
    const Dataset *dataset = nullptr;
    ExcelFormats formats;
    /// Called now and then with the number of a row and the number of rows; may throw, which leaves the file alone.
    std::function<void(int row, int rowCount)> progress;
};

/// Writes a table to a sheet of a workbook. False when nothing was written; `error` then says why, where there is more
/// to say. `warnings` takes what could not be written as it is.
bool writeSheet(const ExcelWriteRequest &request, QString *error, QStringList *warnings);

/// True for a sheet without a used cell, and for one that isn't there or can't be read.
bool isSheetEmpty(int fileType, const QString &path, const QString &sheet);
