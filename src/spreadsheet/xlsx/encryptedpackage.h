#pragma once

#include <QByteArray>

namespace spreadsheet {

class CompoundFile;

/// Decrypts the workbook's archive that a compound file holds when its password is the default one. Null for another
/// password, and for ways of encryption that are unknown.
QByteArray decryptPackage(CompoundFile &file);

} // namespace spreadsheet
