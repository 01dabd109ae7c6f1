#pragma once

#include <QByteArray>
#include <QString>

namespace spreadsheet {

/// The password that spreadsheet programs try by themselves before they ask for one. Workbooks that are only protected
/// against changes are encrypted with it.
inline QByteArray defaultPassword()
{
    return QByteArrayLiteral("VelvetSweatshop");
}

/// The same as keys are made of it: UTF-16, low byte first.
inline QByteArray defaultPasswordUtf16()
{
    const QString text = QString::fromLatin1(defaultPassword());
    return {reinterpret_cast<const char *>(text.utf16()), text.size() * 2};
}

} // namespace spreadsheet
