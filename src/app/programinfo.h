#pragma once

#include <QString>

/// What the program says of itself.
namespace ProgramInfo {

/// Product and version, such as "Quillmere 1.0.0".
QString nameAndVersion();
/// What tells two builds of one version apart.
QString build();

} // namespace ProgramInfo
