#pragma once

#include <QByteArray>

namespace spreadsheet {

struct Hyperlink;

/// Data of an HLINK record: an address, a path, or a place in the workbook behind "#".
QByteArray hyperlinkRecord(const Hyperlink &link);

} // namespace spreadsheet
