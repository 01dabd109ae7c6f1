#include "inputs/jsonreader.h"

class JsonReader::Reading
{
public:
    QStringList infos;
    QStringList warnings;
};

JsonReader::JsonReader(const TreeReadOptions &, TextSource *)
    : m_reading(std::make_unique<Reading>())
{
}

JsonReader::~JsonReader() = default;

void JsonReader::setProgress(std::function<void(double)>) {}

bool JsonReader::read(Dataset *)
{
    m_reading->warnings.append(QStringLiteral("Not read yet"));
    return false;
}

const QStringList &JsonReader::infos() const
{
    return m_reading->infos;
}

const QStringList &JsonReader::warnings() const
{
    return m_reading->warnings;
}
