#include "inputnode/inputnode.h"

#include "data/values.h"
#include "graph/graphscene.h"
#include "graph/runcontrol.h"
#include "inputs/filewatch.h"

#include <QFileInfo>
#include <QTimer>

InputNode::InputNode(const InputOptions &options, int id)
    : IONode(id)
{
    setOptions(options);
}

InputNode::~InputNode() = default;

Node *InputNode::cloneKind() const
{
    return new InputNode(options(), id());
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

bool InputNode::produce()
{
    if (m_medium != Medium::File) {
        stopWatching();
    }
    const bool succeeded = m_medium == Medium::Folder ? readFolder() : readSingle();
    // Empty columns take part in the count, so that the ids of the others don't hang on what is empty.
    m_dataset.assignColumnIds(id());
    if (m_dataset.hasColumns() && m_options.ignoreEmptyColumns) {
        const int removed = m_dataset.removeEmptyColumns();
        if (removed > 0) {
            m_infos.append(QStringLiteral("%1 empty column(s) ignored").arg(formatInteger(removed, true)));
        }
    }
    warnOfDuplicateHeaderNames();
    return succeeded;
}

std::function<void(double)> InputNode::progressPart(double start, double end)
{
    return [=](double share) { onProcessed(start + (end - start) * share); };
}

// Watching

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
    const GraphScene *scene = graphScene();
    m_importTimer->start(scene ? scene->document()->watchDelays.quiet : 0);
}

void InputNode::onDelayedImport()
{
    // A batch runs other scenes meanwhile, and lets events in.
    const GraphScene *scene = graphScene();
    if (scene && (scene->isProcessing() || RunControl::currentRun() != 0)) {
        m_importTimer->start(scene->document()->watchDelays.busy);
    } else {
        emit sourceChanged(this);
    }
}
