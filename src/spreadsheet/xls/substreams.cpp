#include "spreadsheet/xls/substreams.h"

#include "spreadsheet/xls/recordreader.h"

#include <algorithm>
#include <numeric>

namespace spreadsheet {
namespace {

constexpr int maxSubstreamDepth = 16;

} // namespace

quint16 substreamVersion(const Record &bof)
{
    return bof.u16(0);
}

SubstreamType substreamType(const Record &bof)
{
    return SubstreamType(bof.u16(2));
}

bool skipSubstream(RecordReader &records)
{
    int depth = 1;
    while (depth > 0 && depth <= maxSubstreamDepth && records.next()) {
        if (records.record().id == RecordId::Bof) {
            ++depth;
        } else if (records.record().id == RecordId::Eof) {
            --depth;
        }
    }
    return depth == 0;
}

bool findSheetParts(XlsSource &source, size_t *damaged)
{
    std::vector<XlsSource::SheetPart> &sheets = source.sheets;
    const auto size = static_cast<quint32>(source.workbook.size());
    std::vector<size_t> order(sheets.size());
    std::iota(order.begin(), order.end(), size_t(0));
    std::sort(order.begin(), order.end(),
        [&sheets](size_t left, size_t right) { return sheets[left].offset < sheets[right].offset; });
    const auto *stream = reinterpret_cast<const uchar *>(source.workbook.constData());
    quint32 free = source.globalsEnd;
    for (size_t i = 0; i < order.size(); ++i) {
        *damaged = order[i];
        XlsSource::SheetPart &sheet = sheets[order[i]];
        // Up to the next sheet, so that all are walked over in one go.
        const bool isLast = i + 1 == order.size();
        const quint32 limit = isLast ? size : sheets[order[i + 1]].offset;
        RecordReader records(stream, std::min(limit, size), sheet.offset);
        const bool isSheet = sheet.offset >= free && records.next() && records.record().id == RecordId::Bof
                             && substreamVersion(records.record()) == source.version && skipSubstream(records);
        if (!isSheet) {
            return false;
        }
        free = records.nextOffset();
        sheet.size = free - sheet.offset;
    }
    return true;
}

} // namespace spreadsheet
