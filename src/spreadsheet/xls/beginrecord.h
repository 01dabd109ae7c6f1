#pragma once

#include "spreadsheet/xls/recordwriter.h"
#include "spreadsheet/xls/substreams.h"

namespace spreadsheet {

/// BOF, as the first program of this version wrote it.
inline void writeBegin(SubstreamType type, RecordWriter &out)
{
    constexpr unsigned build = 0x0DBB, year = 0x07CC;
    constexpr unsigned history = 0x0001, lowestVersion = 0x0006;
    out.write(RecordId::Bof, {biff8Version, static_cast<unsigned>(type), build, year, history, 0, lowestVersion, 0});
}

} // namespace spreadsheet
