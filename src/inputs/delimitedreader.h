#pragma once

#include "inputs/blockreader.h"
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
    DelimitedReader(const DelimitedOptions &options, TextSource *source);

    /// Called now and then with the share done, 0 to 1, or 0 all along for a source of unknown size; may throw, which
    /// ends the reading.
    void setProgress(std::function<void(double)> progress) { m_reader.setProgress(std::move(progress)); }
    /// Bytes read at a time, about; at least 1.
    void setBlockSize(int size) { m_reader.setBlockSize(size); }

    /// Appends what the source holds to `dataset`. Throws std::bad_alloc when there is too much of it.
    void read(Dataset *dataset);

    /// As BlockReader's.
    qint64 firstBrokenRow() const { return m_reader.firstBrokenRow(); }
    const QStringList &infos() const { return m_infos; }
    const QStringList &warnings() const { return m_warnings; }

private:
    DelimitedSyntax chooseSyntax();

    const DelimitedOptions m_options;
    BlockReader m_reader;
    QStringList m_infos;
    QStringList m_warnings;
};
