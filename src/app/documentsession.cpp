#include "app/documentsession.h"

#include "document/documenthandle.h"
#include "graph/graphscene.h"
#include "graph/node.h"

#include <QDir>
#include <QFileInfo>

DocumentSession::DocumentSession(QObject *parent)
    : QObject(parent)
    , m_scene(std::make_unique<GraphScene>())
{
}

DocumentSession::~DocumentSession() = default;

std::unique_ptr<GraphScene> DocumentSession::newScene() const
{
    return std::make_unique<GraphScene>(m_scene->document());
}

std::unique_ptr<GraphScene> DocumentSession::exchangeScene(std::unique_ptr<GraphScene> next)
{
    Q_ASSERT(next->document() == m_scene->document());
    m_scene.swap(next);
    emit sceneChanged(next.get(), m_scene.get());
    return next;
}

void DocumentSession::setPath(const QString &path)
{
    m_path = path.isEmpty() ? QString() : QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    m_scene->setDocumentPath(m_path);
    emit pathChanged(m_path);
}

void DocumentSession::setModified(bool modified)
{
    if (modified != m_modified) {
        m_modified = modified;
        emit modifiedChanged(modified);
    }
}

bool DocumentSession::load(const QString &path, LoadedDocument &loaded, QString &error)
{
    if (!loadDocument(
            path, *m_scene, [this] { clear(); }, loaded, error)) {
        return false;
    }
    m_notes = loaded.notes;
    m_batch = loaded.batch;
    return true;
}

bool DocumentSession::save(const QString &path, QString &error)
{
    if (m_hold.isHeld() && !m_hold.isAt(path)) {
        // Another program has put a new file there; what goes into the held one would be lost.
        m_hold.acquire(path);
    }
    if (m_hold.isHeld()) {
        DeviceHandle handle(*m_hold.file());
        return saveDocument(&handle, path, content(), error);
    }
    if (QFileInfo::exists(path) && !platform::FileHold().acquire(path)) {
        error = QStringLiteral("Can't open file '%1' to write.").arg(path);
        return false;
    }
    return saveDocument(nullptr, path, content(), error);
}

DocumentToSave DocumentSession::content() const
{
    DocumentToSave document;
    document.scene = m_scene.get();
    document.notes = m_notes;
    document.autoRunOn = m_scene->isAutoRunOn();
    document.batch = m_batch;
    return document;
}

void DocumentSession::releaseDatasets()
{
    for (Node *node : m_scene->nodes()) {
        node->clearDataset();
        node->setState(NodeState::NeedsProcessing, false);
    }
}

void DocumentSession::clear()
{
    emit aboutToClear();
    m_scene->clearAll();
    m_notes.clear();
    m_batch = BatchSettings();
}
