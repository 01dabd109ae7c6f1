#include "data/controlspace.h"
#include "data/dataset.h"

#include <QTextStream>

namespace {

/// Splits pasted text into rows, a character at a time.
class RowParser
{
public:
    RowParser(QChar delimiter, int skipRows)
        : m_delimiter(delimiter)
        , m_skipRows(skipRows)
    {
    }

    /// True when the character ends a row, which takeRow() then gives.
    bool put(QChar c);
    bool hasRow() const { return m_rowsSeen > m_skipRows; }
    QStringList takeRow();
    /// Ends the text; true when that ends a row.
    bool finish();

private:
    enum State { FieldStart, InField, QuoteOpened, InQuotes, QuoteInQuotes, FieldEnded, RowEnded };
    enum CharacterClass { DelimiterClass, QuoteClass, LineEndClass, OtherClass };
    CharacterClass classOf(QChar c) const;
    void pushField();

    const QChar m_delimiter;
    const int m_skipRows;
    int m_rowsSeen = 0;
    State m_state = FieldStart;
    QString m_field;
    QStringList m_row;
};

RowParser::CharacterClass RowParser::classOf(QChar c) const
{
    if (c == m_delimiter) {
        return DelimiterClass;
    }
    if (c == QLatin1Char('"')) {
        return QuoteClass;
    }
    return c == QLatin1Char('\n') || c == QLatin1Char('\r') ? LineEndClass : OtherClass;
}

void RowParser::pushField()
{
    m_row.append(m_field);
    m_field.clear();
}

bool RowParser::put(QChar c)
{
    static constexpr State next[7][4] = {
        // delimiter, quote, line end, other
        {FieldEnded, QuoteOpened, RowEnded, InField},
        {FieldEnded, InField, RowEnded, InField},
        {InQuotes, QuoteInQuotes, InQuotes, InQuotes},
        {InQuotes, QuoteInQuotes, InQuotes, InQuotes},
        {FieldEnded, InQuotes, RowEnded, InQuotes},
        {FieldEnded, QuoteOpened, RowEnded, InField},
        {FieldEnded, QuoteOpened, RowEnded, InField},
    };
    m_state = next[m_state][classOf(c)];
    switch (m_state) {
    case FieldStart:
    case InField:
    case InQuotes:
        m_field.append(c);
        return false;
    case QuoteOpened:
        m_field.clear();
        return false;
    case QuoteInQuotes:
        return false;
    case FieldEnded:
        pushField();
        return false;
    case RowEnded:
        pushField();
        ++m_rowsSeen;
        return true;
    }
    return false;
}

bool RowParser::finish()
{
    if (!m_field.isEmpty()) {
        pushField();
    }
    m_rowsSeen += m_row.isEmpty() ? 0 : 1;
    return !m_row.isEmpty();
}

QStringList RowParser::takeRow()
{
    QStringList row;
    row.swap(m_row);
    return row;
}

/// The next characters of the text; never ends between a carriage return and its line feed.
QString readBlock(QTextStream &stream)
{
    constexpr int blockSize = 2048;
    QString block = stream.read(blockSize);
    while (block.endsWith(QLatin1Char('\r')) && !stream.atEnd()) {
        block.append(stream.read(1));
    }
    return block;
}

} // namespace

Dataset Dataset::fromDelimitedText(
    QTextStream &stream, QChar delimiter, int skipRows, bool trim, bool simplify, bool skipEmptyRows)
{
    Dataset dataset;
    RowParser parser(delimiter, skipRows);
    const auto handOn = [&] {
        QStringList row = parser.takeRow();
        if (!parser.hasRow()) {
            return;
        }
        bool empty = true;
        for (QString &value : row) {
            if (trim) {
                value = value.trimmed();
            }
            if (simplify) {
                simplifyControlSpace(value);
            }
            empty = empty && value.isEmpty();
        }
        if (empty && skipEmptyRows) {
            return;
        }
        if (row.size() > dataset.columnCount()) {
            dataset.setColumnCount(row.size());
        }
        dataset.appendRow(row);
    };
    while (!stream.atEnd()) {
        const QString block = readBlock(stream);
        for (int i = 0; i < block.size(); ++i) {
            const bool inPair = block.at(i) == QLatin1Char('\r') && i + 1 < block.size()
                                && block.at(i + 1) == QLatin1Char('\n');
            if (!inPair && parser.put(block.at(i))) {
                handOn();
            }
        }
    }
    if (parser.finish()) {
        handOn();
    }
    return dataset;
}
