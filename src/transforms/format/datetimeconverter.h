#pragma once

#include "data/cell.h"
#include "data/datewriter.h"
#include "data/numericpattern.h"
#include "data/textbuffer.h"

#include <QDateTime>
#include <QHash>
#include <QLocale>

/// Rewrites many dates and times from one format and locale to another, as QLocale::toDateTime and QLocale::toString
/// do; numeric formats are read without them.
class DateTimeConverter
{
public:
    DateTimeConverter(
        const QString &inputFormat, const QLocale &input, const QString &outputFormat, const QLocale &output);

    /// Replaces what `out` holds by the new text; false for a text that isn't such a date and time.
    bool convert(const Cell &cell, TextBuffer &out);

private:
    struct Known
    {
        bool isRead;
        QString text;
    };
    bool write(const NumericPattern::Numbers &numbers, TextBuffer &out) const;
    bool convertSlowly(const Cell &cell, TextBuffer &out);

    QString m_inputFormat;
    QLocale m_input;
    NumericPattern m_pattern;
    bool m_readsTime;
    QString m_outputFormat;
    QLocale m_output;
    bool m_writesTime;
    DateWriter m_dateWriter;
    /// By text and not by cell: slow as this is, a text is worth finding in another column, or as another copy.
    QHash<QByteArray, Known> m_memory;
};
