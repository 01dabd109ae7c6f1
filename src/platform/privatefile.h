#pragma once

#include <QByteArray>
#include <QString>

namespace platform {

/// Writes a file that only this user may read, into a folder that others may write. Never follows a link and leaves
/// what stood there when anything fails; then `error` says why.
bool writePrivateFile(const QString &path, const QByteArray &content, QString *error);

/// True for a plain file, no link, of this user.
bool isOwnFile(const QString &path);

} // namespace platform
