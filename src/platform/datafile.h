#pragma once

class QFile;

namespace platform {

/// Opens `file` for reading, unbuffered, for whoever reads it in large blocks. False for what can't be read to an end,
/// such as a folder or a terminal. A pipe that nobody writes to is empty and doesn't keep the program waiting.
bool openDataFile(QFile &file);

} // namespace platform
