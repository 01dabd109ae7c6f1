#include "inputs/inputnode.h"

#include "data/values.h"
#include "graph/graphscene.h"
#include "graph/runcontrol.h"
#include "inputs/filewatch.h"

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
    if (m_medium != Medium::File) {
        stopWatching();
    }
    if (m_medium == Medium::Folder) {
        readFolder();
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
    RunControl::countRows(m_dataset.rowCount());
    prepareDownstream();
    update();
}

void InputNode::fail(const QString &warning)
{
    m_warnings.append(warning);
    setState(NodeState::Failed, false);
}

std::function<void(double)> InputNode::progressPart(double start, double end)
{
    return [=](double share) { onProcessed(start + (end - start) * share); };
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

void InputNode::goToRest()
{
    stopWatching();
    IONode::goToRest();
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
