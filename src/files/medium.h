#pragma once

#include <QString>

/// Where a table comes from or goes to. The numbers stand in documents.
namespace Medium {

enum { File = 0, Clipboard = 1, Folder = 2 };

/// "File", "Clipboard" or "Folder"; empty for another number.
QString label(int medium);

} // namespace Medium
