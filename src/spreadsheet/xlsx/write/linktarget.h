#pragma once

#include <QByteArray>
#include <QString>

namespace spreadsheet {

/// A hyperlink's target in the form that files have: an address that is a valid URI, or a place in the workbook.
struct LinkTarget
{
    QByteArray address;  ///< of the relation; empty for a place in the workbook
    QByteArray location; ///< "Sheet!A1"
    bool isValid() const { return !address.isEmpty() || !location.isEmpty(); }
};

/// Percent-encodes what an address can't hold and turns absolute paths into file addresses. Invalid for targets of
/// nothing but blanks, and for those that become too long.
LinkTarget linkTarget(const QString &target);

} // namespace spreadsheet
