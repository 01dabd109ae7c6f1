#pragma once

#include <QString>

namespace platform {

/// True for a plain file, no link, of this user.
bool isOwnFile(const QString &path);
/// Gives a file another name; what stands under that name goes, and a link there isn't followed. False leaves both.
bool moveOver(const QString &from, const QString &to);

} // namespace platform
