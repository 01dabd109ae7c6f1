#pragma once

#include <QString>

namespace spreadsheet {

struct Hyperlink;
struct Record;

/// Reads an HLINK record: range, target and the record's data. The target is an address or path, with "#" and the mark
/// behind it if the link goes to one, or the mark alone; empty for kinds of targets that are none of these. False when
/// the range isn't one of a sheet.
bool readHyperlink(const Record &record, Hyperlink *link);

} // namespace spreadsheet
