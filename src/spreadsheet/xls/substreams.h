#pragma once

#include "spreadsheet/xls/xlssource.h"

namespace spreadsheet {

class RecordReader;
struct Record;

constexpr quint16 biff5Version = 0x0500; // of 5.0 and 95
constexpr quint16 biff8Version = 0x0600; // of 97 and later
enum class SubstreamType : quint16 { Globals = 0x0005, Worksheet = 0x0010, Chart = 0x0020, Macro = 0x0040 };

/// Version and type that a BOF record states.
quint16 substreamVersion(const Record &bof);
SubstreamType substreamType(const Record &bof);

/// Goes past the EOF that belongs to the BOF which the reader stands on, and past all substreams inside. False when
/// there is none.
bool skipSubstream(RecordReader &records);

/// Finds the ends of sheets, by their beginnings in the order of the book. False when one doesn't begin behind the
/// globals with a BOF of the workbook's version, has no EOF, or overlaps another; `damaged` is then its number.
bool findSheetParts(XlsSource &source, size_t *damaged);

} // namespace spreadsheet
