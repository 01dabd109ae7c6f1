#include "inputs/sourcereader.h"

#include "data/dataset.h"
#include "graph/ionode.h"
#include "inputs/delimitedreader.h"
#include "inputs/textsource.h"
#include "platform/datafile.h"

#include <QDir>
#include <QFile>
#include <new>

bool SourceReader::readFile(const QString &path, Dataset *dataset)
{
    if (!canReadType()) {
        return false;
    }
    QFile file(path);
    const QString name = IONode::absoluteNativePath(path);
    if (!platform::openDataFile(file)) {
        m_warnings.append(QStringLiteral("Unable to read '%1'").arg(name));
        return false;
    }
    m_infos.append(QStringLiteral("Read file '%1'").arg(QDir::toNativeSeparators(path)));
    if (m_options.encoding == TextSource::automatic() && m_options.applies(InputOptions::Encoding)) {
        m_infos.append(QStringLiteral("Encoding=Automatic guesses 'UTF-8', set 'Encoding' option to change"));
    }
    TextSource source(&file, m_options.encoding);
    return readSource(source, name, dataset);
}

bool SourceReader::readText(const QString &text, Dataset *dataset)
{
    if (!canReadType()) {
        return false;
    }
    TextSource source(text);
    return readSource(source, Medium::label(Medium::Clipboard), dataset);
}

bool SourceReader::canReadType()
{
    switch (m_options.fileType) {
    case FileType::Delimited:
    case FileType::Yaml:
    case FileType::Html:
    case FileType::Markdown:
        return true;
    default:
        m_warnings.append(QStringLiteral("Reading '%1' files is not supported by this version")
                              .arg(FileType::label(m_options.fileType)));
        return false;
    }
}

bool SourceReader::readSource(TextSource &source, const QString &name, Dataset *dataset)
{
    try {
        readDelimited(source, dataset);
    } catch (const std::bad_alloc &) {
        dataset->clear();
        m_warnings.append(QStringLiteral("'%1' is too big for Quillmere to read").arg(name));
        return false;
    }
    if (source.failed()) {
        dataset->clear();
        m_warnings.append(QStringLiteral("Unable to read '%1'").arg(name));
        return false;
    }
    return true;
}

void SourceReader::readDelimited(TextSource &source, Dataset *dataset)
{
    DelimitedOptions options;
    options.delimiter = m_options.delimiter;
    options.customDelimiter = m_options.customDelimiter;
    options.quoting = m_options.quoting;
    options.ignoreRepeatedDelimiter = m_options.ignoreRepeatedDelimiter;
    options.rows = {m_options.trim, m_options.simplify, m_options.ignoreEmptyRows, m_options.ignoredRows};
    DelimitedReader reader(options, &source);
    reader.setProgress(m_progress);
    reader.read(dataset);
    m_infos += reader.infos();
    m_warnings += reader.warnings();
}
