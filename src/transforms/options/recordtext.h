#pragma once

#include "transforms/options/records.h"

#include <QStringList>

class ColumnNumbers;

/// The stored form of the richer values, in parts: numbers in decimal, columns by number, free text percent-encoded.
/// Parts that are read have been decoded; those that make no sense keep the default.
namespace RecordText {

QString encoded(const QString &text);
/// Leaves `target` as it is when `part` isn't a number.
bool readInt(const QString &part, int &target);

QStringList parts(const QList<ColumnId> &ids, const ColumnNumbers &columns);
QStringList parts(const QList<SortColumn> &entries, const ColumnNumbers &columns);
QStringList parts(const FilterRecord &record, const ColumnNumbers &columns);
QStringList parts(const IfRecord &record, const ColumnNumbers &columns);
QStringList parts(const QHash<ColumnId, QString> &renames, const ColumnNumbers &columns);
QStringList parts(const SplitRowsRecord &record, const ColumnNumbers &columns);
QStringList parts(const QHash<ColumnId, int> &uniqueCodes, const ColumnNumbers &columns);
QStringList parts(const QList<ReplaceTerm> &terms);

void read(const QStringList &parts, const ColumnNumbers &columns, QList<ColumnId> &ids);
void read(const QStringList &parts, const ColumnNumbers &columns, QList<SortColumn> &entries);
void read(const QStringList &parts, const ColumnNumbers &columns, FilterRecord &record);
void read(const QStringList &parts, const ColumnNumbers &columns, IfRecord &record);
void read(const QStringList &parts, const ColumnNumbers &columns, QHash<ColumnId, QString> &renames);
void read(const QStringList &parts, const ColumnNumbers &columns, SplitRowsRecord &record);
void read(const QStringList &parts, const ColumnNumbers &columns, QHash<ColumnId, int> &uniqueCodes);
void read(const QStringList &parts, QList<ReplaceTerm> &terms);

/// Rewrites the operators of a filter's parts, or of those of If branches, from documents before version 57.
void renumberFilterOperators(QStringList &parts);
void renumberBranchOperators(QStringList &parts);
/// True for a text that is the stored form of If branches and not a lone else-text.
bool startsBranch(const QString &text);

} // namespace RecordText
