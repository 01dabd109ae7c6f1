#pragma once

#include "inputs/treeread.h"

#include <QStringList>
#include <functional>
#include <memory>

class Dataset;
class TextSource;
class TreeReading;

/// Reads a text of nested values into a table; the subclass says of which format. One reader reads once.
class TreeReader
{
public:
    Q_DISABLE_COPY(TreeReader)

    /// Called now and then with the share done, 0 to 1; may throw, which ends the reading.
    void setProgress(std::function<void(double)> progress);
    /// Bytes read at a time, about; at least 1.
    void setBlockSize(int size);

    /// Fills an empty table. False after a warning; the table is then empty. Throws std::bad_alloc.
    bool read(Dataset *dataset);

    const QStringList &infos() const;
    const QStringList &warnings() const;

protected:
    explicit TreeReader(std::unique_ptr<TreeReading> reading);
    ~TreeReader();

private:
    std::unique_ptr<TreeReading> m_reading;
};
