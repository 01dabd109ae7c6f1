#pragma once

#include <QString>
#include <QStringList>
#include <functional>

/// What a cell of an input's column stands for.
struct BatchExpansion
{
    /// One path a run, with "[sheet]" behind that of a workbook where a sheet was asked for.
    QStringList paths;
    /// What to say in red.
    QStringList messages;
    /// How many of the messages count as errors: a wildcard that matches nothing doesn't.
    int errors = 0;
};

/// Expands the text of a cell. The file's name may hold the wildcards "*", "?" and "[...]", matched in any case against
/// the files of its folder in order of name, and so may the sheet of a workbook. `goesOn` is asked between workbooks,
/// since each is opened to see its sheets; false ends it with what there is.
BatchExpansion expandBatchFile(const QString &text, const std::function<bool()> &goesOn);
/// The same for a folder input: wildcards in the last part of the path match folders.
BatchExpansion expandBatchFolder(const QString &text);
