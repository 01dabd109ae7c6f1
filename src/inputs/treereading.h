#pragma once

#include "inputs/blockreader.h"
#include "inputs/treeflattener.h"

#include <QStringList>
#include <functional>
#include <memory>

class TextSource;

/// What the readers of trees share: the text, the way from records to rows, progress and messages.
class TreeReading
{
public:
    TreeReading(const TreeReadOptions &options, bool dotsInKeys, TextSource *source);
    virtual ~TreeReading() = default;
    Q_DISABLE_COPY(TreeReading)

    void setProgress(std::function<void(double)> progress) { m_progress = std::move(progress); }
    void setBlockSize(int size) { m_block.setBlockSize(size); }
    /// As the readers' read().
    bool read(Dataset *dataset);
    const QStringList &infos() const { return m_infos; }
    const QStringList &warnings() const { return m_warnings; }

protected:
    /// Adds all records of the text to flattener(). False after fail().
    virtual bool readRecords() = 0;
    /// Forgets all records added; places are new from then on.
    virtual void startOver();

    BlockReader &block() { return m_block; }
    TreePaths *paths() { return m_paths.get(); }
    TreeFlattener &flattener() { return *m_flattener; }
    void reportProgress();
    bool fail(const QString &warning);

    const TreeReadOptions m_options;

private:
    const bool m_dotsInKeys;
    TextSource *m_source;
    BlockReader m_block;
    std::function<void(double)> m_progress;
    Dataset *m_dataset = nullptr;
    std::unique_ptr<TreePaths> m_paths;
    std::unique_ptr<TreeFlattener> m_flattener;
    QStringList m_infos;
    QStringList m_warnings;
};
