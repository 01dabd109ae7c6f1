#pragma once

#include "inputs/blockreader.h"
#include "inputs/rowbatch.h"

#include <QStringList>

class Dataset;

/// The options of an input of fixed column widths.
struct FixedWidthOptions
{
    bool automatic = true; ///< find the widths, whatever `widths` says
    QList<int> widths;     ///< of each column, in UTF-16 units; found when there are none
    RowRules rows;
};

/// Reads text whose columns stand at fixed positions into a table. One reader reads once.
class FixedWidthReader
{
public:
    /// Lines that the sample holds in full, and the units of each that it holds.
    static constexpr int sampleLines = 50;
    static constexpr int sampleLineLength = 1 << 16;

    FixedWidthReader(const FixedWidthOptions &options, TextSource *source);

    // As DelimitedReader's
    void setProgress(std::function<void(double)> progress) { m_reader.setProgress(std::move(progress)); }
    void setBlockSize(int size) { m_reader.setBlockSize(size); }

    /// Appends what the source holds to an empty table. Text behind the last column is lost. Throws std::bad_alloc when
    /// there is too much of it.
    void read(Dataset *dataset);

    /// The widths that were used.
    const QList<int> &widths() const { return m_options.widths; }
    /// The first lines as they stand in the text, then a line that counts the others.
    const QStringList &sample() const { return m_sample; }
    /// As BlockReader's.
    qint64 firstBrokenRow() const { return m_reader.firstBrokenRow(); }
    const QStringList &infos() const { return m_infos; }

private:
    void guessWidths();
    void cutAscii(const char *begin, const char *end, RowBatch &batch) const;
    void cutUnits(const char *begin, const char *end, RowBatch &batch);
    void addToSample(const char *begin, const char *end);

    FixedWidthOptions m_options;
    BlockReader m_reader;
    QByteArray m_apart; // the texts of a row that can't be cut where it lies
    int m_lineCount = 0;
    QStringList m_sample;
    QStringList m_infos;
};
