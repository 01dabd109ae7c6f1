#include "spreadsheet/xls/stylerecords.h"

#include "spreadsheet/xls/bytebuffer.h"
#include "spreadsheet/xls/wholecharacters.h"
#include "spreadsheet/xls/xlspalette.h"

#include <algorithm>

namespace spreadsheet {
namespace {

// Numbers of colours that the program which shows the sheet chooses
constexpr unsigned windowText = 0x40, windowBackground = 0x41, automaticFont = 0x7FFF;

constexpr unsigned allAttributes = 0xFC; // a cell's format decides on all, not the style that it is based on

unsigned bits(int value, int most, int place)
{
    return static_cast<unsigned>(std::clamp(value, 0, most)) << place;
}

unsigned flag(bool on, int place)
{
    return on ? 1u << place : 0;
}

void putBorders(ByteBuffer &out, const CellStyle &style, XlsPalette &palette)
{
    constexpr int mostLine = 13, mostPattern = 18;
    const BorderStyle &border = style.border;
    const auto color = [&](const BorderLine &line) {
        return line.style == 0 ? 0 : palette.number(line.color, windowText);
    };
    const bool hasDiagonal = border.diagonalUp || border.diagonalDown;
    out.u32(bits(border.left.style, mostLine, 0) | bits(border.right.style, mostLine, 4)
            | bits(border.top.style, mostLine, 8) | bits(border.bottom.style, mostLine, 12) | color(border.left) << 16
            | color(border.right) << 23 | flag(border.diagonalDown, 30) | flag(border.diagonalUp, 31));
    out.u32(color(border.top) | color(border.bottom) << 7 | (hasDiagonal ? color(border.diagonal) << 14 : 0)
            | (hasDiagonal ? bits(border.diagonal.style, mostLine, 21) : 0)
            | bits(style.fill.pattern, mostPattern, 26));
}

} // namespace

QByteArray fontRecord(const FontStyle &font, XlsPalette &palette)
{
    constexpr int longestName = 31, twipsInPoint = 20, smallest = 20, largest = 8191;
    constexpr unsigned normalWeight = 400, boldWeight = 700;
    ByteBuffer out;
    out.u16(static_cast<unsigned>(std::clamp(qRound(font.size * twipsInPoint), smallest, largest)));
    out.u16(flag(font.bold, 0) | flag(font.italic, 1) | flag(font.strikeOut, 3));
    out.u16(palette.number(font.color, automaticFont));
    out.u16(font.bold ? boldWeight : normalWeight);
    out.u16(bits(font.script, 2, 0));
    out.u8(bits(font.underline, 34, 0));
    out.u8(bits(font.family, 5, 0));
    out.u8(bits(font.charset, 255, 0));
    out.u8(0);
    QString name = font.name.isEmpty() ? QStringLiteral("Arial") : font.name;
    name.truncate(wholeCharacters(name.utf16(), name.size(), longestName));
    out.u8(static_cast<unsigned>(name.size()));
    out.characters(name);
    return out.data();
}

QByteArray numberFormatRecord(int number, const QString &code)
{
    ByteBuffer out;
    out.u16(static_cast<unsigned>(number));
    out.u16(static_cast<unsigned>(code.size()));
    out.characters(code);
    return out.data();
}

QByteArray cellFormatRecord(const CellStyle &style, unsigned font, unsigned numberFormat, XlsPalette &palette)
{
    const Alignment &alignment = style.alignment;
    ByteBuffer out;
    out.u16(font);
    out.u16(numberFormat);
    out.u16(flag(style.locked, 0) | flag(style.hiddenFormula, 1));
    out.u8(bits(alignment.horizontal, 7, 0) | flag(alignment.wrap, 3) | bits(alignment.vertical, 4, 4));
    out.u8(alignment.rotation >= 0 && (alignment.rotation <= 180 || alignment.rotation == 255)
               ? static_cast<unsigned>(alignment.rotation)
               : 0);
    out.u8(bits(alignment.indent, 15, 0) | flag(alignment.shrink, 4) | bits(alignment.readingOrder, 2, 6));
    out.u8(allAttributes);
    putBorders(out, style, palette);
    out.u16(palette.number(style.fill.foreground, windowText)
            | palette.number(style.fill.background, windowBackground) << 7);
    return out.data();
}

QByteArray baseFormatRecord(unsigned font, bool isNormal)
{
    constexpr unsigned lockedStyle = 0xFFF5, bottom = 0x20;
    constexpr unsigned notUsed = 0xF4; // what the style says nothing about
    ByteBuffer out;
    out.u16(font);
    out.u16(0);
    out.u16(lockedStyle);
    out.u8(bottom);
    out.u8(0);
    out.u8(0);
    out.u8(isNormal ? 0 : notUsed);
    out.u32(0);
    out.u32(0);
    out.u16(windowText | windowBackground << 7);
    return out.data();
}

} // namespace spreadsheet
