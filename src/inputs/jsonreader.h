#pragma once

#include "inputs/treereader.h"

/// Reads JSON, a whole document or one object a line, into a table.
class JsonReader final : public TreeReader
{
public:
    JsonReader(const TreeReadOptions &options, TextSource *source);
};
