#include "inputs/delimitedparser.h"

#include "data/textcoding.h"

#include <QtAlgorithms>
#include <cstring>

namespace {

QByteArray storageForm(QChar c)
{
    QByteArray bytes;
    TextCoding::appendEncoded(bytes, &c, 1);
    return bytes;
}

} // namespace

/// Where parsing stands.
struct DelimitedParser::Cursor
{
    char *const end;
    const bool last;
    char *row;              // where the row begins
    char *text;             // where the text of the field begins, behind an opening quote
    char *next;             // events before this have been dealt with
    char *closed = nullptr; // the closing quote of the field
    bool inside = false;    // between quotes
    bool quoted = false;    // the text holds quotes that must go
    bool unusual = false;   // the row may hold whitespace other than blanks

    char *textEnd(char *at) const { return closed ? closed : at; }
    void addText(char *at, RowBatch &batch)
    {
        if (Q_UNLIKELY(quoted)) {
            batch.addQuotedText(text, textEnd(at));
        } else {
            batch.addText(text, textEnd(at));
        }
    }
    void startField(char *at)
    {
        text = next = at;
        closed = nullptr;
        quoted = false;
    }
};

DelimitedParser::DelimitedParser(const DelimitedSyntax &syntax)
    : m_delimiter(storageForm(syntax.delimiter))
    , m_quotes(syntax.quotes)
    , m_ignoreRepeated(syntax.ignoreRepeatedDelimiter)
    , m_multiByte(m_delimiter.size() > 1)
    , m_delimiterIsSpace(syntax.delimiter.isSpace())
    , m_scanner(m_delimiter.at(0), syntax.quotes)
{
    if (m_quotes) {
        m_kinds['"'] = Quote;
    }
    m_kinds[static_cast<uchar>(m_delimiter.at(0))] = Delimiter;
    m_lineFeedDelimits = m_quotes && m_delimiter == "\n";
    m_carriageReturnDelimits = m_quotes && m_delimiter == "\r";
    // Without quotes, lines are parted before their cells are.
    m_kinds['\r'] = LineEnd;
    m_kinds['\n'] = m_lineFeedDelimits ? Delimiter : LineEnd;
}

char *DelimitedParser::parse(char *begin, char *end, bool last, RowBatch &batch) const
{
    char *const rest = m_quotes ? parseRows<true>(begin, end, last, batch) : parseRows<false>(begin, end, last, batch);
    batch.dropUnfinishedRow();
    return rest;
}

bool DelimitedParser::isDelimiter(const char *at, const char *end) const
{
    const int size = m_delimiter.size();
    return end - at >= size && std::memcmp(at, m_delimiter.constData(), static_cast<size_t>(size)) == 0;
}

template<bool quotes>
char *DelimitedParser::parseRows(char *begin, char *end, bool last, RowBatch &batch) const
{
    Cursor cursor{end, last, begin, begin, begin};
    for (char *group = begin; group < end; group += ByteScanner::groupSize) {
        ByteScanner::Masks masks = m_scanner.scan(group);
        if (end - group < ByteScanner::groupSize) {
            masks.events &= (quint64(1) << (end - group)) - 1;
        }
        quint64 spaces = masks.unusual ? masks.unusual & ByteScanner::spaces(group) : 0;
        for (; masks.events; masks.events &= masks.events - 1) {
            const uint bit = qCountTrailingZeroBits(masks.events);
            char *const at = group + bit;
            if (at < cursor.next) {
                continue;
            }
            const Kind kind = kindAt(at, end);
            if (quotes && cursor.inside) {
                if (kind != Quote) {
                    cursor.unusual |= kind == LineEnd || m_delimiterIsSpace;
                } else {
                    takeQuoteInside(cursor, at, batch);
                }
            } else if (kind == Delimiter) {
                takeDelimiter<quotes>(cursor, at, m_delimiter.size(), batch);
            } else if (kind == LineEnd) {
                const quint64 before = (quint64(1) << bit) - 1;
                // The first byte of a longer delimiter may also begin whitespace.
                cursor.unusual |= m_multiByte || (spaces & before);
                spaces &= ~before;
                if (!takeLineEnd<quotes>(cursor, at, batch)) {
                    return cursor.row;
                }
            } else if (quotes && kind == Quote && at == cursor.text && !cursor.closed) {
                cursor.inside = true;
                cursor.text = at + 1;
            }
        }
        cursor.unusual |= spaces != 0;
    }
    return last ? takeEnd<quotes>(cursor, batch) : cursor.row;
}

/// Where the bytes end before the text does, the answer may be wrong: then the row is parsed again with more of them.
void DelimitedParser::takeQuoteInside(Cursor &cursor, char *at, RowBatch &batch) const
{
    char *const following = at + 1;
    if (following < cursor.end && *following == '"') {
        cursor.quoted = true;
        cursor.next = at + 2;
    } else if (following == cursor.end || kindAt(following, cursor.end) != Plain) {
        cursor.closed = at;
        cursor.inside = false;
    } else {
        cursor.quoted = true;
        batch.noteStrayQuote();
    }
}

template<bool quotes>
void DelimitedParser::takeDelimiter(Cursor &cursor, char *at, int size, RowBatch &batch) const
{
    // With quotes, an empty field goes; without, a delimiter that follows another.
    const bool skipped = m_ignoreRepeated && cursor.textEnd(at) == cursor.text && (quotes || cursor.text != cursor.row);
    if (!skipped) {
        cursor.addText(at, batch);
    }
    cursor.startField(at + size);
}

/// False when it takes more text to tell where the line ends.
template<bool quotes>
bool DelimitedParser::takeLineEnd(Cursor &cursor, char *at, RowBatch &batch) const
{
    int size = 1;
    if (*at == '\r') {
        if (at + 1 == cursor.end && !cursor.last) {
            return false;
        }
        const bool pair = at + 1 < cursor.end && at[1] == '\n';
        size = pair ? 2 : 1;
        if (pair ? m_lineFeedDelimits : m_carriageReturnDelimits) {
            takeDelimiter<quotes>(cursor, at, size, batch);
            return true;
        }
    }
    cursor.addText(at, batch);
    batch.finishRow(cursor.unusual);
    cursor.startField(at + size);
    cursor.row = cursor.text;
    cursor.unusual = false;
    return true;
}

/// The text ends without a line end: its last field counts unless it is empty.
template<bool quotes>
char *DelimitedParser::takeEnd(Cursor &cursor, RowBatch &batch) const
{
    const bool counts = quotes ? cursor.textEnd(cursor.end) != cursor.text : cursor.end != cursor.row;
    if (counts) {
        cursor.addText(cursor.end, batch);
    }
    if (!batch.isRowEmpty()) {
        batch.finishRow(true);
    }
    return cursor.end;
}
