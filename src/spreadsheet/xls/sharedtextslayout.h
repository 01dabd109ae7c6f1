#pragma once

#include "spreadsheet/xls/record.h"

#include <vector>

namespace spreadsheet {

/// A place in the data of one of several records.
struct TextPlace
{
    size_t record = 0;
    quint32 offset = 0;
};

/// Where the texts of an SST record and its CONTINUE records begin, and at last where the last of them ends. Empty when
/// there are less than `count`.
std::vector<TextPlace> sharedTextPlaces(const std::vector<Record> &records, quint32 count);

} // namespace spreadsheet
