#include "inputs/delimitedreader.h"

#include "data/dataset.h"
#include "files/delimiters.h"
#include "inputs/delimiterguess.h"

DelimitedReader::DelimitedReader(const DelimitedOptions &options, TextSource *source)
    : m_options(options)
    , m_reader(source)
{
}

QString InputQuoting::label(int quoting)
{
    static const QStringList labels{QStringLiteral("Automatic"), QStringLiteral("Quoted"), QStringLiteral("Unquoted")};
    return labels.value(quoting);
}

void DelimitedReader::read(Dataset *dataset)
{
    // For a guess, enough for its sample whatever the characters are.
    const int least = m_options.delimiter == DelimiterKind::Automatic ? 4 * DelimiterGuess::sampleSize : 1;
    m_reader.readMore(qMax(m_reader.blockSize(), least));
    const DelimitedParser parser(chooseSyntax());
    RowBatch batch(m_options.rows, dataset);
    m_reader.parseRows(batch, [&](char *begin, char *end, bool last) { return parser.parse(begin, end, last, batch); });
    m_infos += batch.infos();
    m_warnings += batch.strayQuoteWarnings();
    m_warnings += batch.widths().report();
}

DelimitedSyntax DelimitedReader::chooseSyntax()
{
    int delimiter = m_options.delimiter;
    if (delimiter == DelimiterKind::Automatic) {
        const DelimiterGuess guess = DelimiterGuess::fromText(m_reader.begin(), m_reader.size());
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
