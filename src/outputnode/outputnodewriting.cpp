#include "data/values.h"
#include "files/delimiters.h"
#include "files/filesheet.h"
#include "outputnode/filenamecontext.h"
#include "outputnode/outputnode.h"
#include "outputs/delimitedwriter.h"
#include "outputs/htmlwriter.h"
#include "outputs/jsonwriter.h"
#include "outputs/markdownwriter.h"
#include "outputs/outputpaths.h"
#include "outputs/outputtree.h"
#include "outputs/plaintextwriter.h"
#include "outputs/textlayout.h"
#include "outputs/textsink.h"
#include "outputs/vcardwriter.h"
#include "outputs/xmlnames.h"
#include "outputs/xmlwriter.h"
#include "outputs/yamlwriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace {

// A file that holds no more than the mark of UTF-8 counts as empty.
constexpr qint64 utf8MarkSize = 3;

QIODevice::OpenMode openMode(int writeMode)
{
    switch (writeMode) {
    case WriteMode::Append:
        return QIODevice::Append;
    case WriteMode::New:
        return QIODevice::WriteOnly | QIODevice::NewOnly;
    default:
        return QIODevice::WriteOnly;
    }
}

QString doneText(int writeMode, bool existed)
{
    if (!existed) {
        return QStringLiteral("Created file '%1'");
    }
    return writeMode == WriteMode::Append ? QStringLiteral("Appended file '%1'")
                                          : QStringLiteral("Overwrote file '%1'");
}

/// True when every byte has left the program.
bool finish(TextSink &sink, QFile &file)
{
    const bool taken = sink.finish() && file.flush();
    file.close();
    return taken && file.error() == QFileDevice::NoError;
}

QChar delimiterCharacter(int kind, QChar custom)
{
    const QChar character = DelimiterKind::character(kind, custom);
    return character.isNull() ? QChar(QLatin1Char(',')) : character;
}

} // namespace

bool OutputNode::writeDataset()
{
    if (!FileType::isExcel(m_fileType) && m_options.lineEndings == LineEndings::Automatic) {
        m_infos.append(
            QStringLiteral("Line endings=Automatic sets line endings as %1, set 'Line endings' option to change")
                .arg(LineEndings::label(LineEndings::resolved(m_options.lineEndings))));
    }
    return isMultiFile() ? writeMultipleFiles() : writeFile(m_path, m_sheetName, m_dataset, columnMaps());
}

JsonColumnTypes OutputNode::automaticJsonTypes() const
{
    return ::automaticJsonTypes(m_dataset, m_options.jsonTypeMode, m_columns.jsonTypes());
}

ExcelFormats OutputNode::automaticExcelFormats() const
{
    return ::automaticExcelFormats(m_dataset, m_options.excelFormatMode, m_columns.excelFormats());
}

ColumnMaps OutputNode::columnMaps() const
{
    ColumnMaps maps;
    if (FileType::isExcel(m_fileType)) {
        maps.excel = automaticExcelFormats();
    }
    if (m_fileType == FileType::Json) {
        maps.jsonTypes = automaticJsonTypes();
    }
    return maps;
}

bool OutputNode::writeFile(QString path, QString sheet, const Dataset &dataset, const ColumnMaps &maps)
{
    FileNameVariables::expand(path, sheet, fileNameContext(graphScene()));
    m_lastFilePath = path;
    m_lastSheetName = sheet;
    const bool written = FileType::isExcel(m_fileType) ? writeExcelFile(path, sheet, dataset, maps.excel)
                                                       : writeTextFile(path, dataset, maps.jsonTypes);
    if (!written) {
        return false;
    }
    m_writtenFiles.insert(QDir::toNativeSeparators(path));
    warnOfOtherType(path);
    return true;
}

void OutputNode::warnOfOtherType(const QString &path)
{
    if (OutputPaths::fileType(path, m_fileType) != m_fileType) {
        m_warnings.append(
            QStringLiteral("'%1' extension is '%2' but file type is %3")
                .arg(QDir::toNativeSeparators(path), OutputPaths::extension(path), FileType::label(m_fileType)));
    }
}

bool OutputNode::writeTextFile(const QString &path, const Dataset &dataset, const JsonColumnTypes &jsonTypes)
{
    const bool existed = QFile::exists(path);
    const QString shownPath = absoluteNativePath(path);
    if (nestsTooDeep(shownPath, dataset)) {
        return false;
    }
    TextLayout layout;
    layout.lineEnding = LineEndings::bytes(m_options.lineEndings);
    layout.writeHeader = shouldWriteHeader(path);
    layout.progress = [this](int row, int rowCount) { reportRow(row, rowCount); };
    const bool writeBom = shouldWriteBom(path);
    QFile file(path);
    if (!file.open(openMode(m_options.writeMode))) {
        return warnOfOpenFailure(existed, shownPath);
    }
    TextSink sink(&file, m_encoding, writeBom);
    writeText(sink, layout, dataset, jsonTypes);
    if (!finish(sink, file)) {
        m_warnings.append(QStringLiteral("Unable to write '%1'").arg(shownPath));
        return false;
    }
    warnOfInvalidCharacters(sink.invalidCharacters());
    m_infos.append(doneText(m_options.writeMode, existed).arg(shownPath));
    return true;
}

/// Warns of a name that a format of nested elements can't take.
bool OutputNode::nestsTooDeep(const QString &shownPath, const Dataset &dataset)
{
    constexpr int shownLength = 50;
    const bool nests = m_fileType == FileType::Json || m_fileType == FileType::Xml;
    const QString name = nests ? OutputTree::tooDeep(dataset.columnNames()) : QString();
    if (name.isNull()) {
        return false;
    }
    m_warnings.append(QStringLiteral("Unable to write '%1': column name '%2' has more than %3 levels")
                          .arg(shownPath, ellipsized(name, shownLength), formatInteger(OutputTree::maxLevels, true)));
    return true;
}

void OutputNode::reportRow(int row, int rowCount)
{
    if (row % TextLayout::progressStep == 0 && rowCount > 0) {
        onProcessed(m_progressStart + (m_progressEnd - m_progressStart) * row / rowCount);
    }
}

/// A file that New finds there is no failure.
bool OutputNode::warnOfOpenFailure(bool existed, const QString &shownPath)
{
    if (m_options.writeMode == WriteMode::New && existed) {
        m_warnings.append(
            QStringLiteral("Write mode='%1' and '%2' already exists").arg(WriteMode::label(WriteMode::New), shownPath));
        return true;
    }
    const QString text = m_options.writeMode == WriteMode::Append ? QStringLiteral("Unable to append to '%1'")
                         : m_options.writeMode == WriteMode::New  ? QStringLiteral("Unable to create '%1'")
                                                                  : QStringLiteral("Unable to write '%1'");
    m_warnings.append(text.arg(shownPath));
    return false;
}

void OutputNode::writeText(
    TextSink &sink, const TextLayout &layout, const Dataset &dataset, const JsonColumnTypes &jsonTypes)
{
    switch (m_fileType) {
    case FileType::Json:
        return writeJson(sink, layout, dataset, jsonTypes);
    case FileType::Xml:
        return writeXml(sink, layout, dataset);
    case FileType::PlainText:
        return PlainTextWriter::write(sink, dataset, layout);
    case FileType::Html:
        return HtmlWriter::write(sink, dataset, {m_path, expandedComment(), m_encoding, m_options.escapeHtml}, layout);
    case FileType::Markdown:
        return MarkdownWriter::write(sink, dataset, expandedComment(), layout);
    case FileType::VCard:
        return VCardWriter::write(sink, dataset, layout);
    case FileType::Yaml:
        return YamlWriter::write(sink, dataset, expandedComment(), layout);
    default:
        return writeDelimited(sink, layout, dataset);
    }
}

void OutputNode::writeDelimited(TextSink &sink, const TextLayout &layout, const Dataset &dataset)
{
    DelimitedWriter::Format format;
    format.delimiter = delimiterCharacter(m_delimiterKind, m_customDelimiter);
    format.quoting = static_cast<CsvEncoder::Quoting>(m_options.quoting);
    const int replaced = DelimitedWriter::write(sink, dataset, format, layout);
    if (replaced > 0) {
        m_warnings.append(DelimitedWriter::replacedWarning(replaced, format.delimiter));
    }
}

void OutputNode::writeJson(
    TextSink &sink, const TextLayout &layout, const Dataset &dataset, const JsonColumnTypes &types)
{
    const CappedList issues = JsonWriter::write(sink, dataset, types, m_options.removeEmpty, layout);
    m_warnings.append(issues.lines("other JSON type issue", "other JSON type issues"));
    if (!issues.isEmpty()) {
        m_warnings.append(QString());
    }
    if (m_options.jsonTypeMode == JsonTypeMode::Automatic) {
        m_infos.append(QStringLiteral("Value types=Automatic sets JSON column types as:"));
        const QStringList names = dataset.columnNames();
        for (int column = 0; column < names.size(); ++column) {
            const QString type = JsonColumnType::label(types.value(column));
            m_infos.append(QStringLiteral("%1: %2").arg(names.at(column), type));
        }
        m_infos.append(QStringLiteral("Set 'Value types' option to change"));
    }
}

void OutputNode::writeXml(TextSink &sink, const TextLayout &layout, const Dataset &dataset)
{
    XmlWriter::Format format;
    format.encoding = m_encoding;
    format.comment = expandedComment();
    format.rootName = m_options.xmlRootName;
    format.rowName = m_options.xmlRowName;
    format.aboveRoot = m_options.xmlAboveRoot;
    format.belowRoot = m_options.xmlBelowRoot;
    format.removeEmpty = m_options.removeEmpty;
    XmlWriter::write(sink, dataset, format, layout);
    warnOfTagless(QStringLiteral("Root name"), format.rootName);
    warnOfTagless(QStringLiteral("Row name"), format.rowName);
    for (const QString &name : dataset.columnNames()) {
        const QString warning = XmlNames::checkXmlTagName(name);
        if (!warning.isEmpty()) {
            m_warnings.append(warning);
        }
    }
}

/// `what` says whose tags the name gives, of which empty parts count for nothing.
void OutputNode::warnOfTagless(const QString &what, const QString &name)
{
    const QStringList parts = name.split(QLatin1Char('.'), Qt::SkipEmptyParts);
    const auto isTagless = [](const QString &part) { return XmlNames::isTagless(part.midRef(0)); };
    if (parts.isEmpty() || std::any_of(parts.cbegin(), parts.cend(), isTagless)) {
        m_warnings.append(QStringLiteral("%1 '%2' invalid as an XML tag: empty part, written as '_'").arg(what, name));
    }
}

void OutputNode::warnOfInvalidCharacters(int count)
{
    if (count > 0) {
        m_warnings.append(QStringLiteral("%1 character(s) can't be written in encoding '%2' and have been replaced")
                              .arg(formatInteger(count, true), m_encoding));
    }
}

QString OutputNode::expandedComment() const
{
    return FileNameVariables::expanded(m_options.fileComment, fileNameContext(graphScene()));
}

bool OutputNode::shouldWriteHeader(const QString &path) const
{
    if (!m_options.writeHeader) {
        return false;
    }
    if (m_options.writeMode != WriteMode::Append || !m_options.headerOnlyIfEmpty) {
        return true;
    }
    return QFileInfo(path).size() <= utf8MarkSize;
}

bool OutputNode::shouldWriteBom(const QString &path) const
{
    if (!m_options.writeBom || !m_encoding.contains(QLatin1String("utf"), Qt::CaseInsensitive)) {
        return false;
    }
    return m_options.writeMode != WriteMode::Append || QFileInfo(path).size() == 0;
}
