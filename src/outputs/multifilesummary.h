#pragma once

#include <QStringList>

/// What a run over many files is about to write, for the user to confirm.
struct MultiFileSummary
{
    QString text;
    /// How many targets will be written.
    int count = 0;

    /// `existing` and `created` are the targets with and without a file; `writeMode` is a WriteMode.
    static MultiFileSummary of(const QStringList &existing, QStringList created, int writeMode, bool isExcel);
};
