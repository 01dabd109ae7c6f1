#pragma once

#include "inputs/treereader.h"

/// Reads XML into a table, one record for each child of the document element.
class XmlReader final : public TreeReader
{
public:
    XmlReader(const TreeReadOptions &options, TextSource *source);
};
