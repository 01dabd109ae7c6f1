#pragma once

#include "spreadsheet/sheetlayout.h"
#include "spreadsheet/xls/recordwriter.h"

#include <vector>

namespace spreadsheet {

/// The merged ranges of a sheet.
void writeMerges(const SheetLayout &layout, RecordWriter &out);

/// The links of a sheet. Those that the file had are written as they were, with their tool tips among `tooltips`.
void writeHyperlinks(const SheetLayout &layout, const std::vector<Record> &tooltips, RecordWriter &out);

} // namespace spreadsheet
