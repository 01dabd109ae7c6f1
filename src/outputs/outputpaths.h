#pragma once

#include <QString>

/// What the settings say of the path of an output.
namespace OutputPaths {

/// In lower case, without the point.
QString extension(const QString &path);
/// True when nothing may be written to files of this extension.
bool isBlocked(const QString &path);
/// The file type by the extension; `fallback` where none is known.
int fileType(const QString &path, int fallback);

} // namespace OutputPaths
