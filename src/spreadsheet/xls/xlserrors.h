#pragma once

#include <QByteArray>
#include <QString>

namespace spreadsheet {

// Why a file can't be read as an .xls workbook, in words for the user.

/// `what` ends the sentence.
QString damagedText(const QString &what);
QString encryptedText();
QString oldVersionText();
/// By how a file begins that isn't a compound one.
QString foreignFileText(const QByteArray &head);

} // namespace spreadsheet
