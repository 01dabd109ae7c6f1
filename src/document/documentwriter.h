#pragma once

#include "document/documentrecords.h"

class GraphScene;
class QDomDocument;
class QDomElement;

/// What a document says of itself, beside what its scene knows.
struct DocumentHead
{
    QString path;
    QString notes;
    bool autoRunOn = true;
};

/// Fills the empty `document` with the scene; gives its root element. With `selectedOnly` it becomes a fragment for
/// the clipboard: selected items, and selected connections between them.
QDomElement writeDocument(const GraphScene &scene, bool selectedOnly, const DocumentHead &head, QDomDocument &document);

/// Fills the empty `document` with records; gives its root element.
QDomElement writeRecords(const DocumentRecords &records, QDomDocument &document);

/// Appends the elements of batch runs, which only files have.
void writeBatchSettings(const BatchSettings &batch, QDomElement &rootElement);
