#include "inputs/treereader.h"

#include "inputs/treereading.h"

TreeReader::TreeReader(std::unique_ptr<TreeReading> reading)
    : m_reading(std::move(reading))
{
}

TreeReader::~TreeReader() = default;

void TreeReader::setProgress(std::function<void(double)> progress)
{
    m_reading->setProgress(std::move(progress));
}

void TreeReader::setBlockSize(int size)
{
    m_reading->setBlockSize(size);
}

bool TreeReader::read(Dataset *dataset)
{
    return m_reading->read(dataset);
}

const QStringList &TreeReader::infos() const
{
    return m_reading->infos();
}

const QStringList &TreeReader::warnings() const
{
    return m_reading->warnings();
}
