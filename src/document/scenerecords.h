#pragma once

#include "document/documentrecords.h"

class GraphScene;

/// What a document keeps of a scene: its items by ascending id and its connections by their ends; the meta part is
/// left at its defaults. With `selectedOnly` it takes selected items, and selected connections between them.
DocumentRecords recordsOf(const GraphScene &scene, bool selectedOnly);
