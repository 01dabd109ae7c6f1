#pragma once

#include "document/documentrecords.h"

class QDomElement;

/// Reads the tree of a document below `root` into records. What is missing or malformed takes its default, elements
/// without a valid id are left out, an id that has occurred before is replaced by a free one, and what has changed
/// since the document's version is brought up to date.
DocumentRecords parseDocument(const QDomElement &root);

/// The elements of batch runs, which only files have. Cells of the grid without an alias or with a row that no grid
/// has are left out.
BatchSettings parseBatchSettings(const QDomElement &root, int version);
