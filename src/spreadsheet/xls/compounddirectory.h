#pragma once

class QIODevice;

namespace spreadsheet {

/// Whether the directory of a compound file, open for reading, ends and holds at most so many entries. For use before
/// a library builds a tree of it with one call within another for each entry.
bool hasSaneDirectory(QIODevice &file, int maxEntries);

} // namespace spreadsheet
