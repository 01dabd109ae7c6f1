#include "spreadsheet/xls/xlslayoutreader.h"

#include "spreadsheet/sheet.h"
#include "spreadsheet/xls/hyperlinkreader.h"
#include "spreadsheet/xls/xlssource.h"

#include <array>

namespace spreadsheet {
namespace {

constexpr int twipsPerPoint = 20;
constexpr double widthUnits = 256.0; // of a character
constexpr quint32 usualFormat = 15;  // what files without such a cell format state nevertheless

// Bits of the ROW record's options
constexpr quint32 rowOutline = 0x00000017; // level and collapsed
constexpr quint32 rowHidden = 0x00000020;
constexpr quint32 rowHasHeight = 0x00000040;
constexpr quint32 rowHasFormat = 0x00000080;
constexpr quint32 rowSpacing = 0x70000000; // lines above and below, phonetic marks
constexpr int heightMask = 0x7FFF;

constexpr quint16 otherRowsHidden = 0x0002; // of the DEFAULTROWHEIGHT record's options

constexpr quint32 columnInfoSize = 10; // with the options
constexpr quint16 columnHidden = 0x0001;

QByteArray bytesOf(const Record &record, quint32 at, quint32 size)
{
    return {reinterpret_cast<const char *>(record.data) + at, static_cast<int>(size)};
}

} // namespace

XlsLayoutReader::XlsLayoutReader(const XlsSource &source, quint32 formatCount, Sheet &sheet)
    : m_source(source)
    , m_formatCount(formatCount)
    , m_sheet(sheet)
{
}

void XlsLayoutReader::add(const Record &record)
{
    SheetLayout &layout = m_sheet.layout();
    switch (record.id) {
    case RecordId::Row:
        addRow(record);
        break;
    case RecordId::DefaultRowHeight:
        m_usualHeight = record.u16(2) & heightMask;
        layout.otherRowsHidden = record.u16(0) & otherRowsHidden;
        layout.defaultHeight = static_cast<double>(m_usualHeight) / twipsPerPoint;
        break;
    case RecordId::DefaultColumnWidth:
        layout.defaultWidth = layout.defaultWidth < 0 ? record.u16(0) : layout.defaultWidth;
        break;
    case RecordId::StandardWidth:
        layout.defaultWidth = record.u16(0) / widthUnits;
        break;
    case RecordId::ColumnInfo:
        if (record.size >= columnInfoSize && m_columns.size() < 0x10000) {
            m_columns.push_back(record);
        }
        break;
    case RecordId::MergedCells:
        addMerges(record);
        break;
    case RecordId::HyperLink: {
        Hyperlink link;
        if (readHyperlink(record, &link)) {
            layout.hyperlinks.push_back(std::move(link));
        }
        break;
    }
    default:
        break;
    }
}

/// The format that a row or column states, unless it is the one that all cells have.
bool XlsLayoutReader::isOwnFormat(quint32 format) const
{
    return format < m_formatCount && format != usualFormat && format != m_source.defaultFormat;
}

void XlsLayoutReader::addRow(const Record &record)
{
    constexpr quint32 rowSize = 16;
    if (record.size < rowSize) {
        return;
    }
    const quint32 options = record.u32(12);
    const int height = record.u16(6) & heightMask;
    const quint32 format = (options >> 16) & 0x0FFF;
    const bool hasFormat = (options & rowHasFormat) && isOwnFormat(format);
    const bool hasHeight = options & rowHasHeight;
    const bool hasMore = (options & (rowOutline | rowSpacing)) || (!hasHeight && height != m_usualHeight);
    const bool isHidden = options & rowHidden;
    if (!hasFormat && !hasHeight && !hasMore && isHidden == m_sheet.layout().otherRowsHidden) {
        return;
    }
    GridRow &row = m_sheet.cells().rowFor(record.u16(0));
    row.height = hasHeight ? static_cast<float>(height) / twipsPerPoint : -1;
    row.hidden = isHidden;
    row.hasFormat = hasFormat;
    row.format = hasFormat ? format : 0;
    row.otherAttributes = hasMore ? bytesOf(record, 6, rowSize - 6) : QByteArray();
}

void XlsLayoutReader::addMerges(const Record &record)
{
    constexpr quint32 rangeSize = 8;
    const quint32 count = record.u16(0);
    for (quint32 at = 2; at < 2 + count * rangeSize && at + rangeSize <= record.size; at += rangeSize) {
        const CellRange range{record.u16(at), record.u16(at + 2), record.u16(at + 4), record.u16(at + 6)};
        if (range.rowFirst <= range.rowLast && range.columnFirst <= range.columnLast
            && range.columnLast < maxColumns(FileKind::Xls)) {
            m_sheet.layout().merges.push_back(range);
        }
    }
}

void XlsLayoutReader::finish()
{
    // A later record wins where two are about one column.
    std::array<const Record *, maxColumns(FileKind::Xls)> byColumn{};
    for (const Record &record : m_columns) {
        for (size_t column = record.u16(0); column <= record.u16(2) && column < byColumn.size(); ++column) {
            byColumn[column] = &record;
        }
    }
    std::vector<ColumnRecord> &columns = m_sheet.layout().columns;
    const Record *previous = nullptr;
    for (size_t column = 0; column < byColumn.size(); ++column) {
        const Record *record = byColumn[column];
        if (record && record == previous) {
            ++columns.back().last;
        } else if (record) {
            const quint16 options = record->u16(8);
            ColumnRecord read;
            read.first = read.last = static_cast<int>(column);
            read.width = record->u16(4) / widthUnits;
            read.hidden = options & columnHidden;
            read.hasFormat = isOwnFormat(record->u16(6));
            read.format = read.hasFormat ? record->u16(6) : 0;
            read.otherAttributes = options & ~columnHidden ? bytesOf(*record, 8, 2) : QByteArray();
            columns.push_back(read);
        }
        previous = record;
    }
}

} // namespace spreadsheet
