#pragma once

#include "inputs/blockreader.h"
#include "inputs/rowbatch.h"

#include <QHash>
#include <QStringList>
#include <vector>

class Dataset;

/// Reads contacts into a table: a row for each record, a column for each key, in the order in which keys come first.
/// Of lines with the same key in one record the last counts. One reader reads once.
class VCardReader
{
public:
    /// The rows to ignore at the start don't count here.
    VCardReader(const RowRules &rules, TextSource *source);

    /// Called now and then with the share done, 0 to 1; may throw, which ends the reading.
    void setProgress(std::function<void(double)> progress) { m_progress = std::move(progress); }

    /// Fills an empty table, with a header. Throws std::bad_alloc when there is too much text.
    void read(Dataset *dataset);

    const QStringList &infos() const { return m_infos; }
    const QStringList &warnings() const { return m_warnings; }

private:
    /// A line of a record; its text lies in the reader.
    struct Value
    {
        int column;
        const char *begin;
        const char *end;
    };

    static char *unfold(char *begin, char *end);
    void takeLine(const char *begin, const char *end);
    void takeValue(const char *begin, const char *end);
    void finishRecord();
    void addRows(RowBatch &batch);

    const RowRules m_rules;
    BlockReader m_reader;
    std::function<void(double)> m_progress;
    QHash<QByteArray, int> m_columns; // by key; the keys' bytes lie in the reader
    QStringList m_header;
    std::vector<Value> m_values;      // of all records
    std::vector<size_t> m_recordEnds; // in m_values
    bool m_inRecord = false;
    int m_begins = 0;
    int m_ends = 0;
    QStringList m_infos;
    QStringList m_warnings;
};
