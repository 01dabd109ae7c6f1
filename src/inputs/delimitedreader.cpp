#include "inputs/delimitedreader.h"

#include "data/dataset.h"
#include "data/values.h"
#include "graph/delimiters.h"
#include "inputs/delimiterguess.h"
#include "inputs/textsource.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

// One row can't be larger: a cell's text must still fit a QString.
constexpr int largestBuffer = 1 << 30;

} // namespace

DelimitedReader::DelimitedReader(const DelimitedOptions &options, TextSource *source)
    : m_options(options)
    , m_source(source)
{
}

QString InputQuoting::label(int quoting)
{
    static const QStringList labels{QStringLiteral("Automatic"), QStringLiteral("Quoted"), QStringLiteral("Unquoted")};
    return labels.value(quoting);
}

/// The stretch of the source that is being parsed, padded so that the parser may read beyond its end.
class DelimitedReader::Buffer
{
public:
    Buffer() { reserve(0); }
    ~Buffer() { std::free(m_bytes); }
    Q_DISABLE_COPY(Buffer)

    char *begin() const { return m_bytes; }
    char *end() const { return m_bytes + m_size; }
    int size() const { return m_size; }
    bool atEnd() const { return m_atEnd; }

    /// Drops what lies before `rest` and reads at least `count` more bytes, fewer only at the end of the source.
    void refill(TextSource &source, const char *rest, int count)
    {
        const char *const before = end();
        m_size = static_cast<int>(before - rest);
        std::copy(rest, before, m_bytes);
        const qint64 wanted = qint64(m_size) + count;
        reserve(wanted);
        while (m_size < wanted && !m_atEnd) {
            const int got = source.read(end(), static_cast<int>(wanted) - m_size + TextSource::leastRoom);
            m_size += got;
            m_atEnd = got == 0;
        }
    }

private:
    void reserve(qint64 size)
    {
        const qint64 needed = size + TextSource::leastRoom + DatasetAppender::padding;
        if (needed <= m_capacity) {
            return;
        }
        void *grown = size > largestBuffer ? nullptr : std::realloc(m_bytes, static_cast<size_t>(needed));
        if (!grown) {
            throw std::bad_alloc();
        }
        m_bytes = static_cast<char *>(grown);
        m_capacity = static_cast<int>(needed);
        std::memset(end(), 0, static_cast<size_t>(m_capacity - m_size));
    }

    char *m_bytes = nullptr;
    int m_size = 0;
    int m_capacity = 0;
    bool m_atEnd = false;
};

void DelimitedReader::read(Dataset *dataset)
{
    Buffer buffer;
    // For a guess, enough for its sample whatever the characters are.
    const int least = m_options.delimiter == DelimiterKind::Automatic ? 4 * DelimiterGuess::sampleSize : 1;
    buffer.refill(*m_source, buffer.begin(), qMax(m_blockSize, least));
    const DelimitedSyntax syntax = chooseSyntax(buffer);
    RowBatch batch(m_options.rows, dataset);
    parse(buffer, syntax, batch);
    if (batch.emptyRowsDropped() > 0) {
        const QString info = QStringLiteral("%1 empty row(s) ignored");
        m_infos.append(info.arg(formatInteger(batch.emptyRowsDropped(), true)));
    }
    m_warnings += batch.widths().report();
}

DelimitedSyntax DelimitedReader::chooseSyntax(const Buffer &buffer)
{
    int delimiter = m_options.delimiter;
    if (delimiter == DelimiterKind::Automatic) {
        const DelimiterGuess guess = DelimiterGuess::fromText(buffer.begin(), buffer.size());
        delimiter = guess.kind;
        m_infos.append(guess.info);
    }
    DelimitedSyntax syntax;
    syntax.delimiter = DelimiterKind::character(delimiter, m_options.customDelimiter);
    syntax.quotes = m_options.quoting != InputQuoting::Unquoted;
    syntax.ignoreRepeatedDelimiter = m_options.ignoreRepeatedDelimiter;
    if (m_options.quoting == InputQuoting::Automatic) {
        syntax.quotes = syntax.delimiter != QLatin1Char('\t');
        const QString guessed = InputQuoting::label(syntax.quotes ? InputQuoting::Quoted : InputQuoting::Unquoted);
        const QString info = QStringLiteral("Quoting=Automatic guesses '%1', set 'Quoting' option to change");
        m_infos.append(info.arg(guessed));
    }
    return syntax;
}

void DelimitedReader::parse(Buffer &buffer, const DelimitedSyntax &syntax, RowBatch &batch)
{
    const DelimitedParser parser(syntax);
    while (true) {
        batch.setBuffer(buffer.begin());
        const char *rest = parser.parse(buffer.begin(), buffer.end(), buffer.atEnd(), batch);
        batch.flush();
        reportProgress();
        if (buffer.atEnd()) {
            return;
        }
        // Taking at least as much again as is left keeps the cost of a long row in proportion to its length.
        buffer.refill(*m_source, rest, qMax<int>(m_blockSize, static_cast<int>(buffer.end() - rest)));
    }
}

void DelimitedReader::reportProgress()
{
    if (m_progress) {
        const qint64 total = m_source->total();
        m_progress(total > 0 ? qMin(1.0, double(m_source->position()) / double(total)) : 0.0);
    }
}
