#include "inputs/referencereader.h"

#include <QBuffer>
#include <QMap>
#include <QPair>
#include <QTextCodec>
#include <QTextStream>

namespace {

class ReferenceReader
{
public:
    ReferenceReader(QChar delimiter, const DelimitedOptions &options)
        : m_delimiter(delimiter)
        , m_options(options)
    {
    }

    void readQuoted(const QString &text)
    {
        static const int next[7][4] = {
            {5, 2, 6, 1}, {5, 1, 6, 1}, {3, 4, 3, 3}, {3, 4, 3, 3}, {5, 3, 6, 3}, {5, 2, 6, 1}, {5, 2, 6, 1}};
        int state = 0;
        for (int i = 0; i < text.size(); ++i) {
            const QChar c = text.at(i);
            if (c == '\r' && i + 1 < text.size() && text.at(i + 1) == '\n' && state != 2 && state != 3) {
                continue;
            }
            const int before = state;
            state = next[state][c == m_delimiter ? 0 : c == '"' ? 1 : c == '\r' || c == '\n' ? 2 : 3];
            m_isStray = m_isStray || (before == 4 && state == 3 && c != '"');
            if (state == 1 || state == 3) {
                m_field += c;
            } else if (state == 2) {
                m_field.clear();
            } else if (state == 5 && !(m_field.isEmpty() && m_options.ignoreRepeatedDelimiter)) {
                pushField();
            } else if (state == 6) {
                pushField();
                endRow();
            }
        }
        if (!m_field.isEmpty()) {
            pushField();
        }
        if (!m_row.isEmpty()) {
            endRow();
        }
    }

    void readUnquoted(QTextStream &stream)
    {
        QString line;
        while (stream.readLineInto(&line)) {
            if (m_options.ignoreRepeatedDelimiter) {
                QString copy;
                for (int i = line.size() - 1; i >= 0; --i) {
                    if (line.at(i) != m_delimiter || !copy.startsWith(m_delimiter)) {
                        copy.prepend(line.at(i));
                    }
                }
                line = copy;
            }
            for (const QString &part : line.split('\r')) {
                m_row = part.split(m_delimiter);
                endRow();
            }
        }
    }

    ReferenceReading result() const
    {
        ReferenceReading reading = m_reading;
        int widest = 0;
        for (const QStringList &row : reading.rows) {
            widest = qMax(widest, row.size());
        }
        for (QStringList &row : reading.rows) {
            while (row.size() < widest) {
                row.append(QString());
            }
        }
        for (auto it = m_widths.begin(); it != m_widths.end(); ++it) {
            reading.ragged.append(QString("%1 x %2 @ %3").arg(it.key()).arg(it->first).arg(it->second));
        }
        return reading;
    }

private:
    void pushField()
    {
        m_row.append(m_field);
        m_field.clear();
        m_rowStrays += m_isStray;
        m_isStray = false;
    }

    void endRow()
    {
        QStringList row;
        row.swap(m_row);
        ++m_rowNumber;
        if (m_reading.firstBrokenRow == 0 && row.join(QString()).contains(QChar(QChar::ReplacementCharacter))) {
            m_reading.firstBrokenRow = m_rowNumber;
        }
        const int strays = m_rowStrays;
        m_rowStrays = 0;
        if (m_rowNumber <= m_options.rows.ignoredRows) {
            return;
        }
        m_reading.firstStrayRow = m_reading.strayQuotes == 0 && strays > 0 ? m_rowNumber : m_reading.firstStrayRow;
        m_reading.strayQuotes += strays;
        QPair<int, int> &width = m_widths[row.size()];
        width = {width.first + 1, width.first ? width.second : m_rowNumber};
        for (QString &value : row) {
            value = m_options.rows.trim ? value.trimmed() : value;
            if (m_options.rows.simplify) {
                simplify(value);
            }
        }
        if (m_options.rows.ignoreEmptyRows && row.join(QString()).isEmpty()) {
            ++m_reading.emptyRows;
            return;
        }
        m_reading.rows.append(row);
    }

    static void simplify(QString &value)
    {
        for (int i = value.size() - 1; i >= 0; --i) {
            if (value.at(i) == '\r') {
                value.remove(i, 1);
            } else if (value.at(i).isSpace()) {
                value[i] = ' ';
            }
        }
    }

    const QChar m_delimiter;
    const DelimitedOptions m_options;
    QString m_field;
    QStringList m_row;
    int m_rowNumber = 0;
    bool m_isStray = false;
    int m_rowStrays = 0;
    QMap<int, QPair<int, int>> m_widths; // rows, first row
    ReferenceReading m_reading;
};

} // namespace

QString wholeText(const QByteArray &bytes, const QString &encoding)
{
    QByteArray copy = bytes;
    QBuffer buffer(&copy);
    buffer.open(QIODevice::ReadOnly);
    QTextStream stream(&buffer);
    const bool automatic = encoding == "Automatic";
    stream.setCodec(automatic ? "UTF-8" : encoding.toLatin1().constData());
    stream.setAutoDetectUnicode(automatic);
    const QString text = stream.readAll();
    QTextCodec::ConverterState state;
    stream.codec()->toUnicode(bytes.constData(), bytes.size(), &state);
    return text + QString(state.remainingChars > 0 ? 1 : 0, QChar(QChar::ReplacementCharacter));
}

ReferenceReading referenceReading(
    const QByteArray &bytes, const QString &encoding, QChar delimiter, const DelimitedOptions &options)
{
    QString text = wholeText(bytes, encoding);
    ReferenceReader reader(delimiter, options);
    if (options.quoting == InputQuoting::Quoted) {
        reader.readQuoted(text);
    } else {
        QTextStream lines(&text);
        reader.readUnquoted(lines);
    }
    return reader.result();
}
