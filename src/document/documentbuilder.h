#pragma once

#include "document/documentrecords.h"

#include <QHash>
#include <QList>
#include <QStringList>

class GraphScene;
class Node;
class QDomDocument;

/// What reading a document gives beside the nodes in the scene.
struct DocumentContents
{
    int version = currentDocumentVersion;
    QString locale; ///< a locale's name, empty for none
    QString notes;
    bool snapToGrid = false;
    bool autoRunOn = true;
    /// The document comes from a later version of the program, so some of it may be lost.
    bool laterVersion = false;
    /// A path has been replaced by where its file lies now.
    bool relocated = false;
    /// Transforms that this program doesn't have, in words for the user; empty when there are none.
    QString notAdded;
    /// What else had to be left out or changed, one line each for the user.
    QStringList repairs;
    /// Items on circles of connections. They stand in the scene, parted from what led back to them.
    QList<Node *> nodesInCircles;
    QList<Node *> nodes; ///< all that were made, by ascending id
    QHash<int, Node *> nodesById;
};

/// Fills `scene` with what `document` holds; `docPath` is where the document lies, for finding files that moved with
/// it. Ids are kept, and a connection with a lost end or that would close a circle is dropped and told of. It can't
/// fail.
DocumentContents readDocument(const QDomDocument &document, GraphScene &scene, const QString &docPath);

/// The same for records that are parsed already.
DocumentContents buildDocument(const DocumentRecords &records, GraphScene &scene, const QString &docPath);
