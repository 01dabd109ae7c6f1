#pragma once

#include <QRgb>
#include <QString>

namespace spreadsheet {

/// A colour without reference to palette or theme; unset where the program that shows the sheet chooses.
struct StyleColor
{
    bool isSet = false;
    QRgb rgb = 0;

    bool operator==(const StyleColor &other) const { return isSet == other.isSet && (!isSet || rgb == other.rgb); }
};

struct FontStyle
{
    QString name;       ///< empty for the kind's usual font
    double size = 11.0; ///< points
    bool bold = false, italic = false, strikeOut = false;
    int underline = 0; ///< 0 none, 1 single, 2 double, 33 and 34 the same for accounting
    int script = 0;    ///< 0 none, 1 superscript, 2 subscript
    int family = 0;
    int charset = -1; ///< below 0 when not stated
    StyleColor color;
};

struct FillStyle
{
    int pattern = 0; ///< 0 none, 1 solid, 2 to 18 patterns in the order of the file formats
    StyleColor foreground, background;
};

struct BorderLine
{
    int style = 0; ///< 0 none, 1 thin, 2 medium, ... 13, in the order of the file formats
    StyleColor color;
};

struct BorderStyle
{
    BorderLine left, right, top, bottom, diagonal;
    bool diagonalUp = false, diagonalDown = false;
};

struct Alignment
{
    int horizontal = 0; ///< 0 general, 1 left, 2 centre, 3 right, 4 fill, 5 justify, 6 across selection, 7 distributed
    int vertical = 2;   ///< 0 top, 1 centre, 2 bottom, 3 justify, 4 distributed
    bool wrap = false, shrink = false;
    int rotation = 0; ///< 0 to 180, 255 stacked
    int indent = 0;
    int readingOrder = 0;

    bool operator==(const Alignment &other) const
    {
        return horizontal == other.horizontal && vertical == other.vertical && wrap == other.wrap
               && shrink == other.shrink && rotation == other.rotation && indent == other.indent
               && readingOrder == other.readingOrder;
    }
};

/// All that a cell's format says, in itself: it can be taken over into any book.
struct CellStyle
{
    FontStyle font;
    FillStyle fill;
    BorderStyle border;
    Alignment alignment;
    int numberFormat = 0; ///< a built-in number, or what the file calls its own
    QString numberCode;   ///< the code of a format that isn't built in; empty for the built-in ones
    bool locked = true, hiddenFormula = false;
};

} // namespace spreadsheet
