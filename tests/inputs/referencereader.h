#pragma once

#include "inputs/delimitedreader.h"

#include <QIODevice>
#include <QStringList>

class Dataset;

/// What a plain reader makes of the same input: one character at a time, through a text stream and lists of texts.
struct ReferenceReading
{
    QList<QStringList> rows; ///< all of the width of the widest
    qint64 emptyRows = 0;
    QStringList ragged;  ///< "width x rows @ first row", narrowest first
    int strayQuotes = 0; ///< values inside which a quote closed
    int firstStrayRow = 0;
    int firstBrokenRow = 0; ///< with a replacement character, ignored rows included
};

/// The text of a file as a text stream has it, with what it forgets: a sequence that the end cuts off is broken too.
QString wholeText(const QByteArray &bytes, const QString &encoding = QStringLiteral("Automatic"));

/// Reads with a delimiter and a quoting that aren't Automatic; `encoding` as for an input.
ReferenceReading referenceReading(
    const QByteArray &bytes, const QString &encoding, QChar delimiter, const DelimitedOptions &options);
