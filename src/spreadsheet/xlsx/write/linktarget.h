#pragma once

#include <QByteArray>
#include <QString>

namespace spreadsheet {

/// A hyperlink's target in the form that files have: an address, with its characters beyond ASCII as they are, or a
/// place in the workbook.
struct LinkTarget
{
    QByteArray address;  ///< of the relation; empty for a place in the workbook
    QByteArray location; ///< "Sheet!A1"
    bool isValid() const { return !address.isEmpty() || !location.isEmpty(); }
};

/// Percent-encodes what an address can't hold and turns absolute paths into file addresses. Invalid for targets of
/// nothing but blanks, and for those of more than maxHyperlinkLength UTF-16 units; an address that encoding makes
/// longer than that stays as it was typed.
LinkTarget linkTarget(const QString &target);

} // namespace spreadsheet
