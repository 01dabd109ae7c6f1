#pragma once

#include "document/batchsettings.h"
#include "document/documentbuilder.h"

#include <QString>
#include <functional>

class DocumentHandle;
class GraphScene;

/// A document as it was opened: what reading its tree gave, and its settings of batch runs.
struct LoadedDocument : DocumentContents
{
    BatchSettings batch;
};

/// What goes into a file beside the scene.
struct DocumentToSave
{
    const GraphScene *scene = nullptr;
    QString notes;
    bool autoRunOn = true;
    BatchSettings batch;
};

/// Whether other users may read a newly made file, and whether a symbolic link is followed to it.
enum class FileExposure { Normal, OwnerOnly };

/// Opens a document into `scene`. `clearCurrent` lets go of the present document; it is called only when the file is a
/// document, and then reading can't fail any more. False leaves everything as it was and sets `error`.
bool loadDocument(const QString &path, GraphScene &scene, const std::function<void()> &clearCurrent,
    LoadedDocument &loaded, QString &error);

/// Writes a document to `path`: through `handle` when the file is held open, else beside the old file and over it,
/// which keeps its mode and follows a link. With OwnerOnly the new file can be read by its owner only, and a link in
/// its place goes. False leaves an old file that isn't held as it was and sets `error`.
bool saveDocument(DocumentHandle *handle, const QString &path, const DocumentToSave &document, QString &error,
    FileExposure exposure = FileExposure::Normal);
