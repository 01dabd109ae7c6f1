#pragma once

#include "document/documentrecords.h"

class GraphScene;
class QDomDocument;
class QDomElement;

/// Fills the empty `document` with the scene, and gives its root element. With `selectedOnly` it becomes a fragment for
/// the clipboard: selected items, and selected connections between them.
void writeDocument(const GraphScene &scene, bool selectedOnly, const QString &docPath, const QString &docNotes,
    bool autoRun, QDomDocument &document, QDomElement &rootElement);

/// Fills the empty `document` with records; gives its root element.
QDomElement writeRecords(const DocumentRecords &records, QDomDocument &document);

/// Appends the elements of batch runs, which only files have.
void writeBatchSettings(const BatchSettings &batch, QDomElement &rootElement);
