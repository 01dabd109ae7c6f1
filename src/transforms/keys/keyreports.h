#pragma once

#include "data/indexes.h"

#include <QStringList>
#include <QVector>

class Dataset;

// What the transforms that match keys tell about them. Each report is one text of several lines, added to a list of
// messages when there is something to tell; it shows five examples and counts the rest. `datasetName` is what the
// reader knows the table by.

/// Where in the list of messages a report goes.
enum class ReportPlace { End, Front };

/// Keys that stand in more than one row.
void reportDuplicateKeys(QStringList &messages, const Dataset &dataset, ColumnIndex keyColumn, bool caseSensitive,
    const QString &datasetName, ReportPlace place = ReportPlace::End);
/// Values with whitespace at either end.
void reportKeyWhitespace(QStringList &messages, const Dataset &dataset, ColumnIndex keyColumn, bool caseSensitive,
    const QString &datasetName, ReportPlace place = ReportPlace::End);
/// Rows whose key has no partner in the other table, where `hasPartner`, with an entry for each row, is 0; returns how
/// many.
int reportKeyMisses(QStringList &messages, const Dataset &dataset, ColumnIndex keyColumn,
    const QVector<char> &hasPartner, const QString &datasetName, ReportPlace place = ReportPlace::End);
