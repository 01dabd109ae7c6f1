#pragma once

namespace platform {

/// Whether there is a display on which windows can be opened, as far as can be told without opening one. For use before
/// there is an application object, which ends the process where there is none.
bool hasDisplay();

} // namespace platform
