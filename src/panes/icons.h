#pragma once

class QIcon;
class QString;

/// The program's own icons, each in a form for light and one for dark windows.
namespace Icons {

/// Which form icon() gives from now on; icons given before stay as they are.
void setDark(bool dark);
bool areDark();
/// The icon with that name under resources/icons; a null one for an empty name.
QIcon icon(const QString &name);

} // namespace Icons
