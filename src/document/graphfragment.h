#pragma once

#include <QByteArray>
#include <QString>

class GraphScene;

/// Parts of a graph as they go through the clipboard: documents that hold the selected items and the connections
/// between them.
namespace GraphFragment {

constexpr char mimeType[] = "application/quillmere-transformfile";
constexpr char xmlMimeType[] = "application/xml";

/// The selected items of `scene`; empty when none is.
QByteArray ofSelection(const GraphScene &scene);

/// Reads a fragment into the empty `scene`; files that moved with the document at `docPath` are found. Foreign bytes
/// give false and a line on the debug log.
bool read(const QByteArray &bytes, GraphScene &scene, const QString &docPath);

} // namespace GraphFragment
