#include "inputs/xmlreader.h"

class XmlReader::Reading
{
public:
    QStringList infos;
    QStringList warnings;
};

XmlReader::XmlReader(const TreeReadOptions &, TextSource *)
    : m_reading(std::make_unique<Reading>())
{
}

XmlReader::~XmlReader() = default;

void XmlReader::setProgress(std::function<void(double)>) {}

bool XmlReader::read(Dataset *)
{
    m_reading->warnings.append(QStringLiteral("Not read yet"));
    return false;
}

const QStringList &XmlReader::infos() const
{
    return m_reading->infos;
}

const QStringList &XmlReader::warnings() const
{
    return m_reading->warnings;
}
