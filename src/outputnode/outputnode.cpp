#include "outputnode/outputnode.h"

#include "files/delimiters.h"
#include "outputnode/filenamecontext.h"
#include "outputs/outputpaths.h"

namespace {

int choiceWithin(int choice, const QStringList &labels, int otherwise)
{
    return choice >= 0 && choice < labels.size() ? choice : otherwise;
}

} // namespace

OutputNode::OutputNode(const QString &path, int fileType, int id)
    : IONode(id)
{
    m_path = path;
    m_fileType = fileType;
    m_encoding = QStringLiteral("UTF-8");
    m_customDelimiter = QLatin1Char('*');
    const bool isTabbed = OutputOptions::isTabbed(path);
    m_delimiterKind = isTabbed ? DelimiterKind::Tab : DelimiterKind::Comma;
    m_options.quoting = isTabbed ? Quoting::Never : Quoting::AsNeeded;
    m_options.writeBom = fileType != FileType::Json;
}

OutputOptions OutputNode::options() const
{
    OutputOptions options = m_options;
    options.path = m_path;
    options.fileType = m_fileType;
    options.worksheet = m_sheetName;
    options.delimiter = m_delimiterKind;
    options.customDelimiter = m_customDelimiter;
    options.encoding = m_encoding;
    return options;
}

void OutputNode::setOptions(const OutputOptions &options)
{
    const OutputOptions defaults;
    m_options = options;
    m_path = options.path;
    m_fileType = options.fileType;
    m_sheetName = options.worksheet;
    m_delimiterKind = options.delimiter;
    m_customDelimiter = options.customDelimiter;
    m_encoding = options.encoding;
    OutputOptions &o = m_options;
    o.outputTarget = choiceWithin(o.outputTarget, OutputTarget::labels(), defaults.outputTarget);
    o.excelFormatMode = choiceWithin(o.excelFormatMode, ExcelFormatMode::labels(), defaults.excelFormatMode);
    o.jsonTypeMode = choiceWithin(o.jsonTypeMode, JsonTypeMode::labels(), defaults.jsonTypeMode);
    // A number that nobody knows mustn't overwrite anything.
    o.writeMode = choiceWithin(o.writeMode, WriteMode::labels(), WriteMode::Disabled);
    o.overwriteScope = choiceWithin(o.overwriteScope, OverwriteScope::labels(), defaults.overwriteScope);
    o.quoting = choiceWithin(o.quoting, Quoting::labels(), defaults.quoting);
    o.lineEndings = choiceWithin(o.lineEndings, LineEndings::labels(), defaults.lineEndings);
    update();
}

void OutputNode::setWriteMode(int mode)
{
    OutputOptions changed = options();
    changed.writeMode = mode;
    setOptions(changed);
}

bool OutputNode::applies(OutputOption option) const
{
    return options().applies(option);
}

const Dataset *OutputNode::knownDataset() const
{
    const QList<Node *> upstream = upstreamNodes(false);
    if (upstream.size() == 1 && upstream.first()->datasetConst().hasColumns()) {
        return &upstream.first()->datasetConst();
    }
    return m_dataset.hasColumns() ? &m_dataset : nullptr;
}

QString OutputNode::expandedPath() const
{
    return FileNameVariables::expanded(m_path, fileNameContext(graphScene()));
}

Node *OutputNode::cloneKind() const
{
    auto *copy = new OutputNode(m_path, m_fileType, id());
    copy->m_medium = m_medium;
    copy->m_sheetName = m_sheetName;
    copy->m_delimiterKind = m_delimiterKind;
    copy->m_customDelimiter = m_customDelimiter;
    copy->m_encoding = m_encoding;
    copy->m_options = m_options;
    copy->m_columns = m_columns;
    return copy;
}

void OutputNode::takeColumnsAsText(const Node &original)
{
    const auto &other = static_cast<const OutputNode &>(original);
    m_columns.setStored(other.storedMultiFileColumn(), other.storedExcelFormats(), other.storedJsonTypes());
}

void OutputNode::beforeProcess()
{
    const QList<Node *> upstream = upstreamNodes(false);
    if (upstream.size() == 1 && upstream.first()->isReady()) {
        m_columns.resolve(upstream.first()->datasetConst());
    }
}

bool OutputNode::mayRun()
{
    m_dataset.clear();
    m_warnings.clear();
    m_infos.clear();
    m_writtenFiles.clear();
    if (upstreamNodes(false).size() != 1) {
        setState(NodeState::Processed, false);
        m_warnings.append(QStringLiteral("No transforms or inputs connected"));
        return false;
    }
    if (!isMultiFile() && OutputPaths::isBlocked(m_path)) {
        setState(NodeState::Failed, false);
        m_warnings.append(
            QStringLiteral("The extension for this file is blocked in 'Preferences>Output Extensions':\n") + m_path);
        return false;
    }
    return true;
}

void OutputNode::prepareRun()
{
    m_dataset = upstreamNodes(false).first()->datasetConst();
    m_columns.reconnect(m_dataset, m_warnings, m_infos);
}

bool OutputNode::produce()
{
    bool succeeded = true;
    if (m_options.writeMode == WriteMode::Disabled) {
        m_warnings.append(QStringLiteral("Write mode='%1'").arg(WriteMode::label(WriteMode::Disabled)));
    } else {
        succeeded = writeDataset();
    }
    if (m_options.writeHeader) {
        warnOfDuplicateHeaderNames();
    }
    return succeeded;
}
