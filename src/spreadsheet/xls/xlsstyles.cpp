#include "spreadsheet/xls/xlsstyles.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/numberformats.h"
#include "spreadsheet/palette.h"
#include "spreadsheet/xls/biffstrings.h"

namespace spreadsheet {
namespace {

constexpr size_t mostOfAKind = 0x10000; // numbers of fonts and formats have 16 bits
constexpr quint32 missingFont = 4;      // the number that no font has
constexpr quint32 usualCellFormat = 15;
constexpr quint32 firstPaletteColor = 8;
constexpr quint32 windowText = 64, windowBackground = 65; // colours of the system
constexpr quint16 boldWeight = 600;

quint32 bits(quint32 value, int first, int count)
{
    return (value >> first) & ((1u << count) - 1);
}

} // namespace

void XlsStyles::add(const Record &record)
{
    switch (record.id) {
    case RecordId::Font:
        addFont(record);
        break;
    case RecordId::NumberFormat:
        addNumberFormat(record);
        break;
    case RecordId::Palette:
        setPalette(record);
        break;
    case RecordId::ExtendedFormat:
        if (m_formats.size() < mostOfAKind) {
            m_formats.push_back(record);
        }
        break;
    default:
        break;
    }
}

void XlsStyles::addFont(const Record &record)
{
    if (m_fonts.size() >= mostOfAKind) {
        return;
    }
    const quint16 flags = record.u16(2);
    Font font;
    font.style.size = record.u16(0) / 20.0;
    font.style.italic = flags & 0x02;
    font.style.strikeOut = flags & 0x08;
    font.color = record.u16(4);
    font.style.bold = record.u16(6) >= boldWeight;
    font.style.script = record.u16(8);
    font.style.underline = record.u8(10);
    font.style.family = record.u8(11);
    font.style.charset = record.u8(12);
    font.style.name = shortTextAt(record, 14, m_codec);
    m_fonts.push_back(font);
}

void XlsStyles::addNumberFormat(const Record &record)
{
    const int number = record.u16(0);
    const QString code = m_codec ? shortTextAt(record, 2, m_codec) : textAt(record, 2);
    // General, by any name, stays the built-in one.
    if (number > 0 && code != builtInNumberCode(number)) {
        m_numberCodes.insert(number, code);
    }
}

void XlsStyles::setPalette(const Record &record)
{
    m_palette.clear();
    for (quint32 i = 0; i < record.u16(0) && 2 + 4 * i + 4 <= record.size; ++i) {
        const quint32 at = 2 + 4 * i;
        m_palette.push_back(qRgb(record.u8(at), record.u8(at + 1), record.u8(at + 2)));
    }
}

StyleColor XlsStyles::color(quint32 index) const
{
    const quint32 place = index - firstPaletteColor;
    if (index >= firstPaletteColor && place < m_palette.size()) {
        return {true, m_palette[place]};
    }
    return paletteColor(static_cast<int>(index));
}

/// Unset for the system colour that is usual there; the other one is taken as paper or ink.
StyleColor XlsStyles::fillColor(quint32 index, quint32 usual) const
{
    if (index != usual && (index == windowText || index == windowBackground)) {
        return {true, index == windowText ? qRgb(0, 0, 0) : qRgb(255, 255, 255)};
    }
    return color(index);
}

FontStyle XlsStyles::font(quint32 index) const
{
    const quint32 place = index > missingFont ? index - 1 : index;
    if (place >= m_fonts.size()) {
        return {};
    }
    FontStyle style = m_fonts[place].style;
    style.color = color(m_fonts[place].color);
    return style;
}

BorderStyle XlsStyles::border(const Record &xf) const
{
    const quint32 sides = xf.u32(10);
    const quint32 others = xf.u32(14);
    const auto line = [this](quint32 style, quint32 index) {
        return BorderLine{static_cast<int>(style), color(index)};
    };
    BorderStyle border;
    border.left = line(bits(sides, 0, 4), bits(sides, 16, 7));
    border.right = line(bits(sides, 4, 4), bits(sides, 23, 7));
    border.top = line(bits(sides, 8, 4), bits(others, 0, 7));
    border.bottom = line(bits(sides, 12, 4), bits(others, 7, 7));
    border.diagonal = line(bits(others, 21, 4), bits(others, 14, 7));
    border.diagonalDown = bits(sides, 30, 1);
    border.diagonalUp = bits(sides, 31, 1);
    return border;
}

/// A format of a cell says all by itself: its flags tell only which parts stay when its style changes, not which of
/// them count.
CellStyle XlsStyles::style(const Record &xf) const
{
    const quint16 protection = xf.u16(4);
    const quint8 place = xf.u8(6);
    const quint8 layout = xf.u8(8);
    const quint16 fillColors = xf.u16(18);
    CellStyle style;
    style.font = font(xf.u16(0));
    style.numberFormat = xf.u16(2);
    style.numberCode = m_numberCodes.value(style.numberFormat);
    style.locked = protection & 0x01;
    style.hiddenFormula = protection & 0x02;
    style.alignment.horizontal = static_cast<int>(bits(place, 0, 3));
    style.alignment.wrap = bits(place, 3, 1);
    style.alignment.vertical = static_cast<int>(bits(place, 4, 3));
    style.alignment.rotation = xf.u8(7);
    style.alignment.indent = static_cast<int>(bits(layout, 0, 4));
    style.alignment.shrink = bits(layout, 4, 1);
    style.alignment.readingOrder = static_cast<int>(bits(layout, 6, 2));
    style.border = border(xf);
    style.fill.pattern = static_cast<int>(bits(xf.u32(14), 26, 6));
    style.fill.foreground = fillColor(bits(fillColors, 0, 7), windowText);
    style.fill.background = fillColor(bits(fillColors, 7, 7), windowBackground);
    return style;
}

/// The same from a shorter record: parts lie elsewhere, and some didn't exist.
CellStyle XlsStyles::olderStyle(const Record &xf) const
{
    constexpr int rotations[] = {0, 255, 90, 180}; // none, letters below each other, upwards, downwards
    const quint16 protection = xf.u16(4);
    const quint16 place = xf.u16(6);
    const quint32 fill = xf.u32(8);
    const quint32 sides = xf.u32(12);
    const auto line = [this](quint32 style, quint32 index) {
        return BorderLine{static_cast<int>(style), color(index)};
    };
    CellStyle style;
    style.font = font(xf.u16(0));
    style.numberFormat = xf.u16(2);
    style.numberCode = m_numberCodes.value(style.numberFormat);
    style.locked = protection & 0x01;
    style.hiddenFormula = protection & 0x02;
    style.alignment.horizontal = static_cast<int>(bits(place, 0, 3));
    style.alignment.wrap = bits(place, 3, 1);
    style.alignment.vertical = static_cast<int>(bits(place, 4, 3));
    style.alignment.rotation = rotations[bits(place, 8, 2)];
    style.border.bottom = line(bits(fill, 22, 3), bits(fill, 25, 7));
    style.border.top = line(bits(sides, 0, 3), bits(sides, 9, 7));
    style.border.left = line(bits(sides, 3, 3), bits(sides, 16, 7));
    style.border.right = line(bits(sides, 6, 3), bits(sides, 23, 7));
    style.fill.pattern = static_cast<int>(bits(fill, 16, 6));
    style.fill.foreground = fillColor(bits(fill, 0, 7), windowText);
    style.fill.background = fillColor(bits(fill, 7, 7), windowBackground);
    return style;
}

void XlsStyles::makeFormats(BookData &book) const
{
    book.formats.reserve(m_formats.size());
    for (const Record &xf : m_formats) {
        book.addFormat(m_codec ? olderStyle(xf) : style(xf));
    }
}

bool XlsStyles::isCellFormat(const Record &xf)
{
    return !(xf.u16(4) & 0x04);
}

quint32 XlsStyles::defaultFormat() const
{
    if (usualCellFormat < m_formats.size() && isCellFormat(m_formats[usualCellFormat])) {
        return usualCellFormat;
    }
    for (size_t i = 0; i < m_formats.size(); ++i) {
        if (isCellFormat(m_formats[i])) {
            return static_cast<quint32>(i);
        }
    }
    return 0;
}

} // namespace spreadsheet
