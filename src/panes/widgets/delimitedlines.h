#pragma once

#include <QStringList>
#include <QVector>

class QIODevice;

/// Delimited text as rows of cells, for lists that people paste or keep in files.
namespace DelimitedLines {

/// As spreadsheets put it on the clipboard: cells parted by tabs.
QVector<QStringList> fromClipboardText(const QString &text);
QString toClipboardText(const QVector<QStringList> &lines);
/// UTF-8 with commas, or what a byte order mark says. `device` is open.
QVector<QStringList> fromCsv(QIODevice &device);
QString toCsv(const QVector<QStringList> &lines);

} // namespace DelimitedLines
