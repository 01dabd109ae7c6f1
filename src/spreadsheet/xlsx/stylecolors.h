#pragma once

#include "spreadsheet/cellstyle.h"

#include <array>
#include <string_view>
#include <vector>

namespace spreadsheet {

class XmlAttributes;
class ZipArchive;

/// A colour as style parts state it: by itself, by number in the palette or in the theme, made lighter or darker.
struct ColorSpec
{
    enum Kind { Unset, Rgb, Indexed, Theme };
    Kind kind = Unset;
    quint32 value = 0;
    double tint = 0.0; ///< -1 black to 1 white

    static ColorSpec from(const XmlAttributes &attributes);
};

/// Turns colours of a workbook into plain ones.
class StyleColors
{
public:
    static constexpr int themeSize = 12;

    StyleColors();
    /// Takes the colours of the theme part; without one, or with a damaged one, those of the usual theme stay.
    void loadTheme(ZipArchive &archive, const QString &part);
    /// A palette of the file's own, from index 0 on.
    void setPalette(const std::vector<QRgb> &palette) { m_palette = palette; }
    StyleColor resolve(const ColorSpec &spec) const;

private:
    StyleColor untinted(const ColorSpec &spec) const;

    std::array<QRgb, themeSize> m_theme;
    std::vector<QRgb> m_palette;
};

/// Reads "RRGGBB" with or without two digits of opacity in front; false for anything else.
bool parseRgb(std::string_view digits, QRgb *rgb);

} // namespace spreadsheet
