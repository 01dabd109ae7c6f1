#pragma once

#include "document/documentfile.h"
#include "platform/filehold.h"

#include <QObject>
#include <memory>

class GraphScene;

/// The one open document: the scene that shows it now, its path, what belongs to it beside the items, and whether it
/// has changed since it was saved. It asks and shows nothing.
class DocumentSession : public QObject
{
    Q_OBJECT

public:
    explicit DocumentSession(QObject *parent = nullptr);
    ~DocumentSession() override;

    /// The live scene. Undo puts others in its place, so nobody keeps a pointer to it beyond sceneChanged().
    GraphScene &scene() const { return *m_scene; }
    /// A new scene of the same document, without items.
    std::unique_ptr<GraphScene> newScene() const;
    /// Makes `next` the live scene, which must be one of newScene(), and gives the old one back.
    std::unique_ptr<GraphScene> exchangeScene(std::unique_ptr<GraphScene> next);
    /// Absolute, with the system's separators; empty for a new document.
    const QString &path() const { return m_path; }
    void setPath(const QString &path);
    const QString &notes() const { return m_notes; }
    void setNotes(const QString &text) { m_notes = text; }
    const BatchSettings &batch() const { return m_batch; }
    void setBatch(const BatchSettings &batch) { m_batch = batch; }
    bool isModified() const { return m_modified; }
    void setModified(bool modified);

    /// Keeps the document's own file open against other writers; false when it can't be written.
    bool hold(const QString &path) { return m_hold.acquire(path); }
    void releaseHold() { m_hold.release(); }
    bool isHeld() const { return m_hold.isHeld(); }

    /// Opens a document over the present one. False leaves the present one and sets `error`.
    bool load(const QString &path, LoadedDocument &loaded, QString &error);
    /// Writes to `path`, through the held file if there is one. False sets `error`.
    bool save(const QString &path, QString &error);
    /// What saving writes.
    DocumentToSave content() const;
    /// Gives the memory of all tables back; the items need to run again.
    void releaseDatasets();
    /// Drops items, notes and batch settings.
    void clear();

signals:
    /// Another scene is live: whoever listened to `old` listens to `current` from now on. Both exist.
    void sceneChanged(GraphScene *old, GraphScene *current);
    void modifiedChanged(bool modified);
    void pathChanged(const QString &path);
    /// The items are about to go; whoever holds one lets go of it.
    void aboutToClear();

private:
    std::unique_ptr<GraphScene> m_scene;
    QString m_path;
    QString m_notes;
    BatchSettings m_batch;
    bool m_modified = false;
    platform::FileHold m_hold;
};
