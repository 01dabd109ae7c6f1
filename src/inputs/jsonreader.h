#pragma once

#include "inputs/treeread.h"

#include <QStringList>
#include <functional>
#include <memory>

class Dataset;
class JsonReading;
class TextSource;

/// Reads JSON, a whole document or one object a line, into a table. One reader reads once.
class JsonReader
{
public:
    JsonReader(const TreeReadOptions &options, TextSource *source);
    ~JsonReader();
    Q_DISABLE_COPY(JsonReader)

    /// Called now and then with the share done, 0 to 1; may throw, which ends the reading.
    void setProgress(std::function<void(double)> progress);
    /// Bytes read at a time, about; at least 1.
    void setBlockSize(int size);

    /// Fills an empty table. False after a warning; the table is then empty. Throws std::bad_alloc.
    bool read(Dataset *dataset);

    const QStringList &infos() const;
    const QStringList &warnings() const;

private:
    std::unique_ptr<JsonReading> m_reading;
};
