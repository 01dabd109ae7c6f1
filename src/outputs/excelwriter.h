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

/// What is to be told of a write.
struct ExcelWriteReport
{
    QString error;        ///< why nothing was written, where there is more to say
    QStringList warnings; ///< what could not be written as it is
    QString textChanges;  ///< which columns hold texts that automatic formats changed; may be empty
};

/// Writes a table to a sheet of a workbook. False when nothing was written, and the file is as it was. A workbook whose
/// other sheets are to stay and that can't be loaded isn't written to.
bool writeSheet(const ExcelWriteRequest &request, ExcelWriteReport *report);

/// True for a sheet without a used cell, and for one that isn't there or can't be read.
bool isSheetEmpty(int fileType, const QString &path, const QString &sheet);
