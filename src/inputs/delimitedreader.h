#pragma once

#include "inputs/delimitedparser.h"

#include <QStringList>
#include <functional>

class Dataset;
class TextSource;

/// How text is quoted; the numbers stand in documents and settings.
namespace InputQuoting {
enum { Automatic = 0, Quoted = 1, Unquoted = 2 };
/// "Automatic" and so on; empty for a number outside the table.
QString label(int quoting);
} // namespace InputQuoting

/// The options of a delimited input.
struct DelimitedOptions
{
    int delimiter = 0; ///< a value of DelimiterKind
    QChar customDelimiter;
    int quoting = InputQuoting::Automatic;
    bool ignoreRepeatedDelimiter = false;
    RowRules rows;
};

/// Reads delimited text into a table. One reader reads once.
class DelimitedReader
{
public:
    static constexpr int usualBlockSize = 1 << 18;

    DelimitedReader(const DelimitedOptions &options, TextSource *source);

    /// Called now and then with the share done, 0 to 1, or 0 all along for a source of unknown size; may throw, which
    /// ends the reading.
    void setProgress(std::function<void(double)> progress) { m_progress = std::move(progress); }
    /// Bytes read at a time, about; at least 1.
    void setBlockSize(int size) { m_blockSize = size; }

    /// Appends what the source holds to `dataset`. Throws std::bad_alloc when there is too much of it.
    void read(Dataset *dataset);

    const QStringList &infos() const { return m_infos; }
    const QStringList &warnings() const { return m_warnings; }

private:
    class Buffer;
    DelimitedSyntax chooseSyntax(const Buffer &buffer);
    void parse(Buffer &buffer, const DelimitedSyntax &syntax, RowBatch &batch);
    void reportProgress();

    const DelimitedOptions m_options;
    TextSource *m_source;
    std::function<void(double)> m_progress;
    int m_blockSize = usualBlockSize;
    QStringList m_infos;
    QStringList m_warnings;
};
