#include "inputs/jsonreader.h"

#include "inputs/jsonreading.h"

JsonReader::JsonReader(const TreeReadOptions &options, TextSource *source)
    : m_reading(std::make_unique<JsonReading>(options, source))
{
}

JsonReader::~JsonReader() = default;

void JsonReader::setProgress(std::function<void(double)> progress)
{
    m_reading->setProgress(std::move(progress));
}

void JsonReader::setBlockSize(int size)
{
    m_reading->setBlockSize(size);
}

bool JsonReader::read(Dataset *dataset)
{
    return m_reading->read(dataset);
}

const QStringList &JsonReader::infos() const
{
    return m_reading->infos();
}

const QStringList &JsonReader::warnings() const
{
    return m_reading->warnings();
}
