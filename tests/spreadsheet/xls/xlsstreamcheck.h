#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The workbook stream of a file; empty when there is none.
QByteArray workbookStream(const QString &path);

/// What a strict program would find wrong with a workbook stream: sizes of records, places of sheets, numbers of texts,
/// formats and fonts that nothing has, rows and cells out of order, wrong counts and positions. Empty when all is
/// right.
QStringList streamFaults(const QByteArray &stream);
