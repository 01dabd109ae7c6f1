#pragma once

#include "inputs/bytescanner.h"
#include "inputs/rowbatch.h"

#include <QByteArray>
#include <QChar>
#include <array>

/// How delimited text is parted into cells.
struct DelimitedSyntax
{
    QChar delimiter = QLatin1Char(',');
    bool quotes = true; ///< double quotes group; otherwise they are text like any other
    bool ignoreRepeatedDelimiter = false;
};

/// Parts text in WTF-8 into rows and cells. It takes whole rows only, so between two calls there is no state:
/// the caller comes again with what was left and more behind it.
class DelimitedParser
{
public:
    explicit DelimitedParser(const DelimitedSyntax &syntax);

    /// Adds the rows of `begin` to `end` to the batch and returns where the first unfinished row begins. The texts of
    /// rows may be changed in place; DatasetAppender::padding bytes behind `end` are readable. With `last`, the text
    /// ends there and nothing is left.
    char *parse(char *begin, char *end, bool last, RowBatch &batch) const;

private:
    enum Kind : quint8 { Plain, Delimiter, Quote, LineEnd };
    struct Cursor;

    Kind kindAt(const char *at, const char *end) const
    {
        const Kind kind = m_kinds[static_cast<uchar>(*at)];
        return Q_LIKELY(!m_multiByte) || kind != Delimiter || isDelimiter(at, end) ? kind : Plain;
    }
    bool isDelimiter(const char *at, const char *end) const;
    template<bool quotes>
    char *parseRows(char *begin, char *end, bool last, RowBatch &batch) const;
    void takeQuoteInside(Cursor &cursor, char *at, RowBatch &batch) const;
    template<bool quotes>
    void takeDelimiter(Cursor &cursor, char *at, int size, RowBatch &batch) const;
    template<bool quotes>
    bool takeLineEnd(Cursor &cursor, char *at, RowBatch &batch) const;
    template<bool quotes>
    char *takeEnd(Cursor &cursor, RowBatch &batch) const;

    QByteArray m_delimiter; // WTF-8
    bool m_quotes;
    bool m_ignoreRepeated;
    bool m_lineFeedDelimits = false;
    bool m_carriageReturnDelimits = false;
    bool m_multiByte;
    bool m_delimiterIsSpace;
    std::array<Kind, 256> m_kinds{};
    ByteScanner m_scanner;
};
