#include "data/csvencoder.h"

#include <cstring>

CsvEncoder::CsvEncoder(QChar delimiter, Quoting quoting)
    : m_quoting(quoting)
{
    TextCoding::appendEncoded(m_delimiter, &delimiter, 1);
}

bool CsvEncoder::needsCare(const char *bytes, int size) const
{
    const char first = m_delimiter.at(0);
    const auto delimiterSize = static_cast<size_t>(m_delimiter.size());
    const char *const end = bytes + size;
    for (const char *p = bytes; p < end; ++p) {
        if (*p == '\n' || *p == '\r' || (*p == '"' && m_quoting == AsNeeded)) {
            return true;
        }
        if (*p == first && static_cast<size_t>(end - p) >= delimiterSize
            && std::memcmp(p, m_delimiter.constData(), delimiterSize) == 0) {
            return true;
        }
    }
    return false;
}

void CsvEncoder::appendQuoted(QByteArray &out, const char *bytes, int size) const
{
    out.append('"');
    const char *const end = bytes + size;
    for (const char *p = bytes; p < end;) {
        const auto *quote = static_cast<const char *>(std::memchr(p, '"', static_cast<size_t>(end - p)));
        if (!quote) {
            out.append(p, static_cast<int>(end - p));
            break;
        }
        out.append(p, static_cast<int>(quote - p) + 1).append('"');
        p = quote + 1;
    }
    out.append('"');
}

void CsvEncoder::appendReplaced(QByteArray &out, const char *bytes, int size) const
{
    const char replacement = m_delimiter == " " ? '_' : ' ';
    QByteArray value(bytes, size);
    value.replace('\r', replacement).replace('\n', replacement).replace(m_delimiter, QByteArray(1, replacement));
    out.append(value);
}

void CsvEncoder::appendValue(QByteArray &out, const char *bytes, int size)
{
    if (m_quoting == Always || (m_quoting == AsNeeded && needsCare(bytes, size))) {
        appendQuoted(out, bytes, size);
    } else if (m_quoting == Never && needsCare(bytes, size)) {
        appendReplaced(out, bytes, size);
        ++m_replacedCount;
    } else {
        out.append(bytes, size);
    }
}

void CsvEncoder::appendValue(QByteArray &out, const QString &text)
{
    QByteArray bytes;
    TextCoding::appendEncoded(bytes, text.constData(), text.size());
    appendValue(out, bytes.constData(), bytes.size());
}

void CsvEncoder::appendLine(QByteArray &out, const QStringList &values)
{
    for (int i = 0; i < values.size(); ++i) {
        if (i > 0) {
            appendDelimiter(out);
        }
        appendValue(out, values.at(i));
    }
}
