#pragma once

#include "inputs/inputoptions.h"

#include <QStringList>
#include <functional>

class Dataset;
class TextSource;
struct RowRules;

/// Reads one source of text into a table by an input's options, whatever its type, and gathers what there is to tell.
class SourceReader
{
public:
    explicit SourceReader(const InputOptions &options)
        : m_options(options)
    {
    }

    /// Called now and then with the share done, 0 to 1; may throw, which ends the reading.
    void setProgress(std::function<void(double)> progress) { m_progress = std::move(progress); }

    /// Fills an empty table. False when the file can't be read: the warnings say why, and the table stays empty.
    bool readFile(const QString &path, Dataset *dataset);
    /// The same with a text.
    bool readText(const QString &text, Dataset *dataset);

    const QStringList &infos() const { return m_infos; }
    const QStringList &warnings() const { return m_warnings; }

    /// The column widths that text of fixed width was read by, and its first lines as they stand there; none for other
    /// types.
    const QList<int> &fixedWidths() const { return m_fixedWidths; }
    const QStringList &fixedWidthSample() const { return m_fixedWidthSample; }

private:
    bool readSource(TextSource &source, const QString &name, Dataset *dataset);
    bool readByType(TextSource &source, Dataset *dataset);
    void readDelimited(TextSource &source, Dataset *dataset);
    void readPlainText(TextSource &source, Dataset *dataset);
    void readFixedWidth(TextSource &source, Dataset *dataset);
    void readVCard(TextSource &source, Dataset *dataset);
    template<class TreeReader>
    bool readTree(TextSource &source, Dataset *dataset);
    RowRules rowRules() const;
    void warnOfBroken(const TextSource &source, const QString &path, const QString &encoding);

    const InputOptions m_options;
    QList<int> m_fixedWidths;
    QStringList m_fixedWidthSample;
    std::function<void(double)> m_progress;
    QStringList m_infos;
    QStringList m_warnings;
    qint64 m_firstBrokenRow = 0; // 0 for none or unknown
};
