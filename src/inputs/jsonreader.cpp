#include "inputs/jsonreader.h"

#include "inputs/jsonreading.h"

JsonReader::JsonReader(const TreeReadOptions &options, TextSource *source)
    : TreeReader(std::make_unique<JsonReading>(options, source))
{
}
