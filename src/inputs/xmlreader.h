#pragma once

#include "inputs/treeread.h"

#include <QStringList>
#include <functional>
#include <memory>

class Dataset;
class TextSource;

/// Reads XML into a table, one record for each child of the document element. One reader reads once.
class XmlReader
{
public:
    XmlReader(const TreeReadOptions &options, TextSource *source);
    ~XmlReader();
    Q_DISABLE_COPY(XmlReader)

    /// Called now and then with the share done, 0 to 1; may throw, which ends the reading.
    void setProgress(std::function<void(double)> progress);
    /// Bytes read at a time, about; at least 1.
    void setBlockSize(int size);

    /// Fills an empty table. False after a warning; the table is then empty. Throws std::bad_alloc.
    bool read(Dataset *dataset);

    const QStringList &infos() const;
    const QStringList &warnings() const;

private:
    class Reading;
    std::unique_ptr<Reading> m_reading;
};
