#pragma once

#include <string>
#include <vector>

/// The platform plugins for a run without a window with these arguments, the one to try first in front. One that opens
/// no fonts does where no document holds a chart to be drawn: looking for fonts takes a fifth of a short run. Uses
/// nothing of Qt, which takes the locale for good when it is first used.
std::string platformsWithoutWindow(const std::vector<std::string> &arguments);
