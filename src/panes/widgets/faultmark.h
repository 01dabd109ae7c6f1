#pragma once

#include <QRgb>

/// The frame round what still has to be set, or makes no sense as it is.
namespace FaultMark {

constexpr QRgb color = 0xfffc3300;

} // namespace FaultMark
