#include "spreadsheet/xls/sheetlayoutwriter.h"

#include "spreadsheet/xls/hyperlinkrecord.h"

#include <QHash>
#include <algorithm>

namespace spreadsheet {
namespace {

constexpr size_t mostMergesInRecord = 1026;
constexpr int rangeSize = 8, tooltipRangePlace = 2;

} // namespace

void writeMerges(const SheetLayout &layout, RecordWriter &out)
{
    for (size_t from = 0; from < layout.merges.size(); from += mostMergesInRecord) {
        const size_t count = std::min(layout.merges.size() - from, mostMergesInRecord);
        out.begin(RecordId::MergedCells);
        out.buffer().u16(static_cast<unsigned>(count));
        for (size_t i = from; i < from + count; ++i) {
            const CellRange &range = layout.merges[i];
            out.buffer().u16(static_cast<unsigned>(range.rowFirst));
            out.buffer().u16(static_cast<unsigned>(range.rowLast));
            out.buffer().u16(static_cast<unsigned>(range.columnFirst));
            out.buffer().u16(static_cast<unsigned>(range.columnLast));
        }
        out.end();
    }
}

void writeHyperlinks(const SheetLayout &layout, const std::vector<Record> &tooltips, RecordWriter &out)
{
    QHash<QByteArray, const Record *> tooltipOfRange;
    for (const Record &tooltip : tooltips) {
        const auto *range = reinterpret_cast<const char *>(tooltip.data) + tooltipRangePlace;
        if (tooltip.size >= static_cast<quint32>(tooltipRangePlace + rangeSize)) {
            tooltipOfRange.insert(QByteArray(range, rangeSize), &tooltip);
        }
    }
    for (const Hyperlink &link : layout.hyperlinks) {
        if (!link.stored.isEmpty()) {
            out.write(RecordId::HyperLink, link.stored);
            if (const Record *tooltip = tooltipOfRange.value(link.stored.left(rangeSize))) {
                out.copy(*tooltip);
            }
        } else if (!link.target.trimmed().isEmpty()) {
            out.write(RecordId::HyperLink, hyperlinkRecord(link));
        }
    }
}

} // namespace spreadsheet
