#include "inputs/sourcereader.h"

#include "data/dataset.h"
#include "data/values.h"
#include "files/filesheet.h"
#include "inputs/delimitedreader.h"
#include "inputs/fixedwidthreader.h"
#include "inputs/jsonreader.h"
#include "inputs/readmessages.h"
#include "inputs/textsource.h"
#include "inputs/vcardreader.h"
#include "inputs/xmlreader.h"
#include "platform/datafile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <new>
#include <vector>

namespace {

/// The line, from 1, that byte `position` of a file's text stands in; 0 when the file can't be read again.
qint64 lineAt(const QString &path, const QString &encoding, qint64 position)
{
    QFile file(path);
    // What a pipe held is gone.
    if (!QFileInfo(path).isFile() || !platform::openDataFile(file)) {
        return 0;
    }
    TextSource source(&file, encoding);
    std::vector<char> bytes(1 << 16);
    qint64 line = 1;
    char before = 0;
    while (position > 0) {
        const int size = source.read(bytes.data(), static_cast<int>(bytes.size()));
        if (size == 0) {
            return 0;
        }
        for (int i = 0; i < size && position > 0; ++i, --position) {
            line += bytes[static_cast<size_t>(i)] == '\r' || (bytes[static_cast<size_t>(i)] == '\n' && before != '\r');
            before = bytes[static_cast<size_t>(i)];
        }
    }
    return line;
}

} // namespace

bool SourceReader::readFile(const QString &path, Dataset *dataset)
{
    QFile file(path);
    const QString name = absoluteNativePath(path);
    if (!platform::openDataFile(file)) {
        m_warnings.append(QStringLiteral("Unable to read '%1'").arg(name));
        return false;
    }
    m_infos.append(QStringLiteral("Read file '%1'").arg(QDir::toNativeSeparators(path)));
    if (m_options.encoding == TextSource::automatic() && m_options.applies(InputOptions::Encoding)) {
        m_infos.append(QStringLiteral("Encoding=Automatic guesses 'UTF-8', set 'Encoding' option to change"));
    }
    const bool fixedEncoding = m_options.fileType == FileType::Json;
    const QString encoding = fixedEncoding ? TextSource::automatic() : m_options.encoding;
    TextSource source(&file, encoding);
    const bool done = readSource(source, name, dataset);
    warnOfBroken(source, path, encoding);
    return done;
}

/// Bytes that the encoding can't read are a reason for other faults, so this is told whether the reading was done or
/// not.
void SourceReader::warnOfBroken(const TextSource &source, const QString &path, const QString &encoding)
{
    if (source.brokenCount() == 0) {
        return;
    }
    QString warning = QStringLiteral("%1 character(s) can't be read in encoding '%2' and have been replaced")
                          .arg(formatInteger(source.brokenCount(), true), source.encodingName());
    if (m_firstBrokenRow > 0) {
        warning += QStringLiteral(": E.g. input row %1").arg(formatInteger(m_firstBrokenRow, true));
    } else if (const qint64 line = lineAt(path, encoding, source.firstBroken())) {
        warning += QStringLiteral(": E.g. line %1").arg(formatInteger(line, true));
    }
    m_warnings.append(warning);
}

bool SourceReader::readText(const QString &text, Dataset *dataset)
{
    TextSource source(text);
    return readSource(source, Medium::label(Medium::Clipboard), dataset);
}

bool SourceReader::readSource(TextSource &source, const QString &name, Dataset *dataset)
{
    try {
        if (!readByType(source, dataset)) {
            dataset->clear();
            return false;
        }
    } catch (const std::bad_alloc &) {
        dataset->clear();
        m_warnings.append(tooBigToRead(name));
        return false;
    }
    if (source.failed()) {
        dataset->clear();
        m_warnings.append(QStringLiteral("Unable to read '%1'").arg(name));
        return false;
    }
    return true;
}

bool SourceReader::readByType(TextSource &source, Dataset *dataset)
{
    switch (m_options.fileType) {
    case FileType::FixedWidth:
        readFixedWidth(source, dataset);
        return true;
    case FileType::VCard:
        readVCard(source, dataset);
        return true;
    case FileType::PlainText:
        readPlainText(source, dataset);
        return true;
    case FileType::Json:
        return readTree<JsonReader>(source, dataset);
    case FileType::Xml:
        return readTree<XmlReader>(source, dataset);
    default: // pasted cells of workbooks, and types that are only written
        readDelimited(source, dataset);
        return true;
    }
}

void SourceReader::readDelimited(TextSource &source, Dataset *dataset)
{
    DelimitedOptions options;
    options.delimiter = m_options.delimiter;
    options.customDelimiter = m_options.customDelimiter;
    options.quoting = m_options.quoting;
    options.ignoreRepeatedDelimiter = m_options.ignoreRepeatedDelimiter;
    options.rows = rowRules();
    DelimitedReader reader(options, &source);
    reader.setProgress(m_progress);
    reader.read(dataset);
    m_firstBrokenRow = reader.firstBrokenRow();
    m_infos += reader.infos();
    m_warnings += reader.warnings();
}

/// Each line is a cell.
void SourceReader::readPlainText(TextSource &source, Dataset *dataset)
{
    DelimitedOptions options;
    // Without quotes lines are parted first, so what ends lines parts no cells.
    options.delimiter = DelimiterKind::Custom;
    options.customDelimiter = QLatin1Char('\n');
    options.quoting = InputQuoting::Unquoted;
    options.rows = rowRules();
    DelimitedReader reader(options, &source);
    reader.setProgress(m_progress);
    reader.read(dataset);
    m_firstBrokenRow = reader.firstBrokenRow();
    m_infos += reader.infos();
}

void SourceReader::readFixedWidth(TextSource &source, Dataset *dataset)
{
    FixedWidthReader reader({m_options.autoFixedWidths, m_options.fixedWidths, rowRules()}, &source);
    reader.setProgress(m_progress);
    reader.read(dataset);
    m_firstBrokenRow = reader.firstBrokenRow();
    m_fixedWidths = reader.widths();
    m_fixedWidthSample = reader.sample();
    m_infos += reader.infos();
}

void SourceReader::readVCard(TextSource &source, Dataset *dataset)
{
    VCardReader reader(rowRules(), &source);
    reader.setProgress(m_progress);
    reader.read(dataset);
    m_infos += reader.infos();
    m_warnings += reader.warnings();
}

template<class TreeReader>
bool SourceReader::readTree(TextSource &source, Dataset *dataset)
{
    TreeReadOptions options;
    options.arraysAsRows = m_options.jsonArraysAsRows;
    options.trim = m_options.trim;
    options.simplify = m_options.simplify;
    options.ignoreEmptyRows = m_options.ignoreEmptyRows;
    TreeReader reader(options, &source);
    reader.setProgress(m_progress);
    const bool success = reader.read(dataset);
    m_infos += reader.infos();
    m_warnings += reader.warnings();
    return success;
}

RowRules SourceReader::rowRules() const
{
    return {m_options.trim, m_options.simplify, m_options.ignoreEmptyRows, m_options.ignoredRows};
}
