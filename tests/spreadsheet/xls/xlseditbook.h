#pragma once

#include "xlstestbook.h"

/// A workbook of another program with much that the book knows nothing of, in its globals and on its sheets:
/// "Data" with texts that have runs, a formula that four cells share, a row with an outline, a column, a merged range,
/// a link with a tool tip and an embedded chart; "Other" with an index of its rows; and a chart sheet. Formulas refer
/// to another sheet and another workbook, and a name is defined.
XlsTestBook foreignXls();

/// The file, with other streams beside the workbook's.
QByteArray foreignXlsFile(const QByteArray &stream);

/// Position of a sheet in a workbook stream.
quint32 sheetBegin(const QByteArray &stream, int sheet);
/// A sheet's records, from its BOF on to the end of the stream or the next sheet.
QByteArray sheetBytes(const QByteArray &stream, int sheet);
/// The first part of the stream.
QByteArray globalBytes(const QByteArray &stream);
/// The data of all records of a kind in a part of a stream, in their order.
QList<QByteArray> recordsOf(const QByteArray &part, spreadsheet::RecordId id);
/// All records of a part of a stream, headers included, but those of these kinds.
QByteArray withoutRecords(const QByteArray &part, const QList<spreadsheet::RecordId> &ids);
