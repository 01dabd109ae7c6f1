#include "inputs/inputnode.h"

#include "data/values.h"
#include "graph/graphscene.h"
#include "graph/runcontrol.h"
#include "inputs/filewatch.h"
#include "inputs/metainformation.h"
#include "inputs/sourcereader.h"
#include "settings/settings.h"

#include <QFileInfo>
#include <QTimer>

namespace {

struct WatchDelays
{
    int quietMs = 5000;
    int busyMs = 2000;
};

WatchDelays &watchDelays()
{
    static WatchDelays delays;
    return delays;
}

} // namespace

InputNode::InputNode(const InputOptions &options, int id)
    : IONode(id)
{
    setOptions(options);
}

InputNode::~InputNode() = default;

InputNode *InputNode::clone() const
{
    auto *copy = new InputNode(options(), id());
    copy->setPos(pos());
    copy->setComment(comment());
    copy->setAlias(alias());
    return copy;
}

// Options

InputOptions InputNode::options() const
{
    InputOptions options = m_options;
    options.medium = m_medium;
    options.fileType = m_fileType;
    options.path = m_path;
    options.worksheet = m_sheetName;
    options.delimiter = m_delimiterKind;
    options.customDelimiter = m_customDelimiter;
    options.encoding = m_encoding;
    return options;
}

void InputNode::setOptions(const InputOptions &options)
{
    m_options = options;
    m_medium = options.medium;
    m_fileType = options.fileType;
    m_path = options.path;
    m_sheetName = options.worksheet;
    m_delimiterKind = options.delimiter;
    m_customDelimiter = options.customDelimiter;
    m_encoding = options.encoding;
}

void InputNode::setPath(const QString &path, const QString &sheet)
{
    IONode::setPath(path, sheet);
    if (m_medium == Medium::Folder && !path.isEmpty()) {
        m_options.folder.folder = path;
    }
    stopWatching();
    m_dataset.clear();
    setState(NodeState::NeedsProcessing, true);
}

bool InputNode::hasHeader() const
{
    return m_dataset.hasColumns() ? m_dataset.hasHeader() : m_options.headerMode != InputOptions::NoHeader;
}

QVariantList InputNode::summaryRow() const
{
    return IONode::summaryRow() + options().values();
}

// Running

void InputNode::process(bool recurse, bool releaseInputs)
{
    if (stopRequested) {
        return;
    }
    if (m_state == NodeState::Processed) {
        if (!enterWalk()) {
            return;
        }
    } else {
        readAnew();
        enterWalk();
    }
    if (recurse && m_state != NodeState::Failed) {
        processDownstream(releaseInputs);
    }
}

void InputNode::readAnew()
{
    startProcessing();
    QElapsedTimer timer;
    timer.start();
    setFraction(0.0);
    if (m_medium == Medium::Folder) {
        fail(QStringLiteral("Reading folders is not supported by this version"));
    } else {
        readSingle();
    }
    m_dataset.assignColumnIds(id());
    if (m_dataset.hasColumns() && m_options.ignoreEmptyColumns) {
        const int removed = m_dataset.removeEmptyColumns();
        if (removed > 0) {
            m_infos.append(QStringLiteral("%1 empty column(s) ignored").arg(formatInteger(removed, true)));
        }
    }
    m_processingMs = timer.elapsed();
    m_lastProcessed = QDateTime::currentDateTime();
    warnOfDuplicateHeaderNames();
    emit processingEnd(this);
    m_dataset.releaseValuePools();
    prepareDownstream();
    update();
}

void InputNode::readSingle()
{
    if (m_medium == Medium::File ? m_path.isEmpty() : m_options.text.isEmpty()) {
        setState(NodeState::Processed, false);
        return;
    }
    // Read aside, so that nobody sees half a table when progress lets events in.
    Dataset dataset;
    bool success = false;
    if (m_medium == Medium::Clipboard) {
        success = readClipboard(dataset);
    } else {
        const QString path = absoluteNativePath(m_path);
        if (!QFileInfo::exists(m_path)) {
            fail(QStringLiteral("File '%1' not found").arg(path));
            return;
        }
        if (Settings::isExtensionBlocked(QFileInfo(m_path).suffix(), Settings::current().blockedInputExtensions())) {
            const QString text = QStringLiteral(
                "The extension for this file is blocked in 'Preferences>Input Extensions':\n%1");
            fail(text.arg(path));
            return;
        }
        m_stampBefore = FileWatch::stamp(m_path);
        success = readFile(m_path, dataset, 0.0, 1.0);
    }
    m_dataset = std::move(dataset);
    setState(success ? NodeState::Processed : NodeState::Failed, false);
    finishReading();
}

bool InputNode::readClipboard(Dataset &dataset)
{
    SourceReader reader(options());
    reader.setProgress([this](double share) { onProcessed(share); });
    const bool success = reader.readText(m_options.text, &dataset);
    takeMessages(reader);
    return success;
}

bool InputNode::readFile(const QString &path, Dataset &dataset, double progressStart, double progressEnd)
{
    SourceReader reader(options());
    reader.setProgress([=](double share) { onProcessed(progressStart + (progressEnd - progressStart) * share); });
    const bool success = reader.readFile(path, &dataset);
    takeMessages(reader);
    return success;
}

void InputNode::takeMessages(const SourceReader &reader)
{
    m_infos += reader.infos();
    m_warnings += reader.warnings();
}

/// What is done with a table once it is read.
void InputNode::finishReading()
{
    if (m_medium == Medium::File) {
        if (m_state == NodeState::Processed) {
            updateWatch();
        }
        warnOfExtension();
    }
    if (m_state == NodeState::Failed) {
        return;
    }
    applyHeader();
    m_previousColumnNames = m_dataset.columnNames();
    if (m_options.schema.inUse) {
        fail(QStringLiteral("Using a schema is not supported by this version"));
    }
    addMetaInformation();
}

void InputNode::fail(const QString &warning)
{
    m_warnings.append(warning);
    setState(NodeState::Failed, false);
}

void InputNode::warnOfExtension()
{
    const QString extension = QFileInfo(m_path).suffix();
    const int expected = Settings::current().inputTypeOf(extension);
    if (expected != FileType::None && expected != m_fileType) {
        m_warnings.append(QStringLiteral("File extension '%1' may not match data type: %2")
                              .arg(extension, FileType::label(m_fileType)));
    }
}

// Header and meta information

void InputNode::applyHeader()
{
    if (m_options.headerMode == InputOptions::DecideAtFirstRead) {
        m_options.headerMode = guessHeader() ? InputOptions::FirstRowIsHeader : InputOptions::NoHeader;
    }
    m_dataset.setHasHeader(m_options.headerMode == InputOptions::FirstRowIsHeader);
}

bool InputNode::guessHeader() const
{
    if (m_dataset.hasHeader()) {
        return true;
    }
    if (m_dataset.rowCount() < 2) {
        return false;
    }
    const QStringList formats = dateFormats();
    for (const QString &value : m_dataset.row(RowIndex(0))) {
        bool isNumber = false;
        parseNumber(value, false, true, &isNumber);
        if (isNumber || parseDate(value, formats, nullptr).isValid()) {
            return false;
        }
    }
    return true;
}

void InputNode::addMetaInformation()
{
    if (m_options.metaPosition == InputOptions::NoMeta || !m_dataset.hasColumns()) {
        return;
    }
    const MetaSource source{m_medium == Medium::File ? m_path : QString(),
        options().applies(InputOptions::Worksheet) ? m_sheetName : QString(), m_dataset.rowCount(),
        m_dataset.columnCount()};
    const QString text = MetaInformation::expand(m_options.metaText, source);
    if (m_options.metaPosition == InputOptions::MetaFirstRow) {
        m_dataset.prependRow({text});
    } else if (m_options.metaPosition == InputOptions::MetaLastRow) {
        m_dataset.appendRow({text});
    } else {
        CellColumn column;
        const TextArenaPointer arena(new TextArena);
        const Cell cell = arena->store(text);
        column.keep(arena);
        column.cells.reserve(m_dataset.rowCount());
        for (int i = 0; i < m_dataset.rowCount(); ++i) {
            column.cells.append(cell);
        }
        m_dataset.appendColumn(column, m_options.metaColumnName);
    }
}

// Watching

void InputNode::setWatchDelays(int quietMs, int busyMs)
{
    watchDelays() = {quietMs, busyMs};
}

void InputNode::connectToScene(GraphScene *scene)
{
    IONode::connectToScene(scene);
    connect(this, &InputNode::sourceChanged, scene, &GraphScene::onSourceChanged);
}

void InputNode::updateWatch()
{
    if (!m_options.watching) {
        stopWatching();
        return;
    }
    startWatching(m_path);
    // What changed during the reading came too early for the new watcher.
    if (FileWatch::stamp(m_path) != m_stampBefore) {
        onWatchedChanged();
    }
}

void InputNode::startWatching(const QString &path)
{
    stopWatching();
    if (QFileInfo::exists(path)) {
        m_watcher = new FileWatch(path, this);
        connect(m_watcher, &FileWatch::fileChanged, this, &InputNode::onWatchedChanged);
    }
}

void InputNode::stopWatching()
{
    delete m_watcher;
    m_watcher = nullptr;
    if (m_importTimer) {
        m_importTimer->stop();
    }
}

void InputNode::onWatchedChanged()
{
    if (!m_importTimer) {
        m_importTimer = new QTimer(this);
        m_importTimer->setSingleShot(true);
        connect(m_importTimer, &QTimer::timeout, this, &InputNode::onDelayedImport);
    }
    m_importTimer->start(watchDelays().quietMs);
}

void InputNode::onDelayedImport()
{
    const GraphScene *scene = graphScene();
    if (scene && scene->isProcessing()) {
        m_importTimer->start(watchDelays().busyMs);
    } else {
        emit sourceChanged(this);
    }
}
