#pragma once

#include <QString>

/// A sheet in a workbook's file.
struct SheetPlace
{
    int fileType; ///< of FileType
    QString file;
    QString sheet;
};

/// Gives a sheet of a workbook the look of a sheet of another: widths, heights, what is hidden, merged ranges and cell
/// formats, but no content. False with the reason in `error`; the file then stays as it was.
bool copySheetStyle(const SheetPlace &model, const SheetPlace &target, QString *error);
