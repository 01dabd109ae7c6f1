#pragma once

#include <QString>

/// A file and, in a workbook, the sheet of it that is meant.
struct FileSheet
{
    QString file;
    QString sheet;
};

/// `path` made absolute, with the system's separators; empty for an empty one.
QString absoluteNativePath(const QString &path);
/// The path, with "[sheet]" behind it when there is a sheet.
QString fileSheetText(const QString &path, const QString &sheet);
/// Takes "file[sheet]" apart; a text that doesn't end in square brackets is all file.
FileSheet splitFileSheet(const QString &text);
