#pragma once

#include "spreadsheet/xls/record.h"

#include <vector>

namespace spreadsheet {

struct XlsSource;

/// The records of the first part of a loaded file's stream, its BOF and EOF included. A substream inside stands there
/// as one record, whose size may be larger than that of any other.
using GlobalRecords = std::vector<Record>;

GlobalRecords globalRecords(const XlsSource &source);

} // namespace spreadsheet
