#pragma once

#include <QString>

/// Gives a sheet of a workbook the look of a sheet of another: widths, heights, what is hidden, merged ranges and cell
/// formats, but no content. False with the reason in `error`; the file then stays as it was.
bool copySheetStyle(int templateType, const QString &templatePath, const QString &templateSheet, int targetType,
    const QString &path, const QString &sheet, QString *error);
