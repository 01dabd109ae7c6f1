#include "inputs/treereading.h"

#include "data/dataset.h"
#include "inputs/textsource.h"

TreeReading::TreeReading(const TreeReadOptions &options, bool dotsInKeys, TextSource *source)
    : m_options(options)
    , m_dotsInKeys(dotsInKeys)
    , m_source(source)
    , m_block(source)
{
}

bool TreeReading::read(Dataset *dataset)
{
    m_dataset = dataset;
    startOver();
    const bool done = readRecords();
    if (done) {
        m_flattener->finish(&m_infos, &m_warnings);
    } else {
        m_dataset->clear();
    }
    return done;
}

void TreeReading::startOver()
{
    m_dataset->clear();
    m_paths = std::make_unique<TreePaths>(m_options, m_dotsInKeys);
    m_flattener = std::make_unique<TreeFlattener>(m_paths.get(), m_options, m_dataset);
    m_flattener->setProgress([this] { reportProgress(); });
}

void TreeReading::reportProgress()
{
    if (m_progress) {
        const qint64 total = m_source->total();
        m_progress(total > 0 ? qMin(1.0, double(m_source->position()) / double(total)) : 0.0);
    }
}

bool TreeReading::fail(const QString &warning)
{
    m_warnings.append(warning);
    return false;
}
