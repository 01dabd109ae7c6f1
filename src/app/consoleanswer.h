#pragma once

#include <QString>
#include <QStringList>

/// What the program answers on the console to arguments that ask about itself, without a display and without doing
/// anything else: how it is called for -h and --help, its version for --version. With -cli, -version is part of the
/// report of a run. Empty when nothing of the kind is asked. `arguments` are without the program's own path.
QString consoleAnswer(const QStringList &arguments);
