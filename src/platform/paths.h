#pragma once

class QString;

namespace platform {

/// An absolute path without "." and ".." that names what the system finds under `path`: a folder that is a link is
/// followed before ".." leaves it. Links that nothing leaves stay as they are, and so does what doesn't exist.
QString resolvedPath(const QString &path);

} // namespace platform
