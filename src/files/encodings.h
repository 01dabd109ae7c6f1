#pragma once

#include <QStringList>

/// The encodings of texts that people choose from.
namespace Encodings {

/// Each under its main name, sorted.
const QStringList &names();
/// The same for a list to choose from, with those in common use in front.
QStringList commonFirst();
/// What stands for an encoding that is to be found out.
inline QString automatic()
{
    return QStringLiteral("Automatic");
}

} // namespace Encodings
