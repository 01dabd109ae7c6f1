#include "spreadsheet/xls/rowwriter.h"

#include <QtMath>
#include <algorithm>

namespace spreadsheet {
namespace {

constexpr double twipsInPoint = 20.0;
constexpr unsigned tallest = 8190; // twips
constexpr int attributesSize = 10; // height, two unused fields, options

// Options of a row
constexpr quint32 alwaysSet = 0x0100, isHidden = 0x20, hasOwnHeight = 0x40, hasFormat = 0x80;
constexpr int formatShift = 16;
constexpr quint32 formatMask = 0x0FFFu << formatShift;

constexpr double widthUnits = 256.0; // of a character
constexpr double usualWidth = 2340.0 / widthUnits, widest = 255.0;
constexpr quint16 columnIsHidden = 0x0001;

unsigned twips(double points)
{
    return static_cast<unsigned>(std::clamp(qRound(points * twipsInPoint), 0, static_cast<int>(tallest)));
}

} // namespace

RowWriter::RowWriter(StyleWriter &styles, const SheetLayout &layout)
    : m_styles(styles)
    , m_usualHeight(twips(layout.defaultHeight >= 0 ? layout.defaultHeight : styles.usualRowHeight()))
{
}

void RowWriter::write(int number, const GridRow &row, RecordWriter &out)
{
    Attributes attributes = storedAttributes(row);
    setHeight(row, &attributes);
    quint32 options = (attributes.options & ~(isHidden | hasFormat | formatMask)) | alwaysSet;
    options |= row.hidden ? isHidden : 0;
    options |= row.hasFormat ? hasFormat : 0;
    options |= (m_styles.recordOf(row.hasFormat ? row.format : 0) << formatShift) & formatMask;
    const bool hasCells = !row.cells.empty();
    out.begin(RecordId::Row);
    out.buffer().u16(static_cast<unsigned>(number));
    out.buffer().u16(hasCells ? row.cells.front().column : 0);
    out.buffer().u16(hasCells ? row.cells.back().column + 1u : 0);
    out.buffer().u16(attributes.height);
    out.buffer().u16(attributes.unused[0]);
    out.buffer().u16(attributes.unused[1]);
    out.buffer().u32(options);
    out.end();
}

RowWriter::Attributes RowWriter::storedAttributes(const GridRow &row)
{
    Attributes attributes;
    if (row.otherAttributes.size() == attributesSize) {
        const char *bytes = row.otherAttributes.constData();
        attributes.height = qFromLittleEndian<quint16>(bytes);
        attributes.unused[0] = qFromLittleEndian<quint16>(bytes + 2);
        attributes.unused[1] = qFromLittleEndian<quint16>(bytes + 4);
        attributes.options = qFromLittleEndian<quint32>(bytes + 6);
    }
    return attributes;
}

/// A stated height stays what it is; without one a row keeps what the file said, or fits its largest font.
void RowWriter::setHeight(const GridRow &row, Attributes *attributes) const
{
    if (row.height >= 0) {
        attributes->height = static_cast<quint16>(twips(static_cast<double>(row.height)));
        attributes->options |= hasOwnHeight;
    } else if (attributes->height == 0 || (attributes->options & hasOwnHeight)) {
        attributes->height = static_cast<quint16>(std::max(m_usualHeight, heightOfFonts(row)));
        attributes->options &= ~hasOwnHeight;
    }
}

unsigned RowWriter::heightOfFonts(const GridRow &row) const
{
    double height = 0.0;
    quint32 previous = 0;
    for (const CellRecord &cell : row.cells) {
        if (cell.format != previous) {
            height = std::max(height, m_styles.rowHeight(cell.format));
            previous = cell.format;
        }
    }
    return twips(height);
}

void writeColumns(const SheetLayout &layout, StyleWriter &styles, RecordWriter &out)
{
    for (const ColumnRecord &column : layout.columns) {
        if (column.width < 0 && !column.hidden && !column.hasFormat && column.otherAttributes.isEmpty()) {
            continue; // as all others
        }
        const double width = column.width >= 0 ? std::min(column.width, widest) : usualWidth;
        const bool hasOptions = column.otherAttributes.size() == 2;
        const unsigned options = hasOptions ? qFromLittleEndian<quint16>(column.otherAttributes.constData()) : 0u;
        out.write(RecordId::ColumnInfo, {static_cast<unsigned>(column.first), static_cast<unsigned>(column.last),
                                            static_cast<unsigned>(qRound(width * widthUnits)),
                                            styles.recordOf(column.hasFormat ? column.format : 0),
                                            (options & ~columnIsHidden) | (column.hidden ? columnIsHidden : 0u), 0});
    }
}

} // namespace spreadsheet
