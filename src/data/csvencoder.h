#pragma once

#include "data/cell.h"

#include <QByteArray>
#include <QStringList>

/// Writes values as one line of delimited text, in WTF-8. Unquoted output can't hold delimiters and line breaks:
/// they become blanks, or underscores where the blank is the delimiter, and the values changed so are counted.
class CsvEncoder
{
public:
    enum Quoting { AsNeeded = 0, Always = 1, Never = 2 };

    CsvEncoder(QChar delimiter, Quoting quoting);

    /// Appends the value alone.
    void appendValue(QByteArray &out, const char *bytes, int size);
    void appendValue(QByteArray &out, const Cell &cell) { appendValue(out, cell.bytes(), cell.size()); }
    void appendValue(QByteArray &out, const QString &text);
    void appendDelimiter(QByteArray &out) const { out.append(m_delimiter); }
    void appendLine(QByteArray &out, const QStringList &values);
    int replacedCount() const { return m_replacedCount; }

private:
    bool needsCare(const char *bytes, int size) const;
    void appendQuoted(QByteArray &out, const char *bytes, int size) const;
    void appendReplaced(QByteArray &out, const char *bytes, int size) const;

    QByteArray m_delimiter;
    Quoting m_quoting;
    int m_replacedCount = 0;
};
