#include "spreadsheet/xlsx/stylecolors.h"

#include "spreadsheet/palette.h"
#include "spreadsheet/xlsx/xmlparser.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace spreadsheet {
namespace {

constexpr QRgb opaque = 0xFF000000;
// In the order in which styles number them, which has light before dark.
constexpr std::string_view themeNames[StyleColors::themeSize] = {
    "lt1", "dk1", "lt2", "dk2", "accent1", "accent2", "accent3", "accent4", "accent5", "accent6", "hlink", "folHlink"};

class ThemeHandler final : public XmlHandler
{
public:
    explicit ThemeHandler(std::array<QRgb, StyleColors::themeSize> *colors)
        : m_colors(colors)
    {
    }

    bool startElement(std::string_view name, const XmlAttributes &attributes) override
    {
        if (m_color >= 0) {
            takeColor(name, attributes);
            return false;
        }
        const auto *found = std::find(std::begin(themeNames), std::end(themeNames), name);
        if (m_isInScheme && found != std::end(themeNames)) {
            m_color = static_cast<int>(found - themeNames);
            return true;
        }
        m_isInScheme = m_isInScheme || name == "clrScheme";
        return name == "theme" || name == "themeElements" || name == "clrScheme";
    }
    void endElement(std::string_view name) override
    {
        if (m_color >= 0) {
            m_color = -1;
        } else if (name == "clrScheme") {
            finish();
        }
    }

private:
    void takeColor(std::string_view name, const XmlAttributes &attributes)
    {
        QRgb rgb = 0;
        if (parseRgb(attributes.value(name == "sysClr" ? "lastClr" : "val"), &rgb)) {
            (*m_colors)[static_cast<size_t>(m_color)] = rgb;
        }
    }

    std::array<QRgb, StyleColors::themeSize> *m_colors;
    int m_color = -1; // number of the colour whose element is open
    bool m_isInScheme = false;
};

/// A part of a colour from hue, `low` and `high` being its least and greatest part.
double partOfHue(double low, double high, double hue)
{
    hue -= std::floor(hue);
    if (hue < 1.0 / 6) {
        return low + (high - low) * 6 * hue;
    }
    if (hue < 1.0 / 2) {
        return high;
    }
    return hue < 2.0 / 3 ? low + (high - low) * (2.0 / 3 - hue) * 6 : low;
}

/// Darker below 0 and lighter above: the luminance goes that part of the way, hue and saturation stay.
QRgb tinted(QRgb rgb, double tint)
{
    const double red = qRed(rgb) / 255.0, green = qGreen(rgb) / 255.0, blue = qBlue(rgb) / 255.0;
    const double greatest = std::max({red, green, blue}), least = std::min({red, green, blue});
    const double spread = greatest - least;
    double light = (greatest + least) / 2;
    double hue = 0, saturation = 0;
    if (spread > 0) {
        saturation = spread / (light > 0.5 ? 2 - greatest - least : greatest + least);
        if (greatest == red) {
            hue = (green - blue) / spread;
        } else {
            hue = greatest == green ? 2 + (blue - red) / spread : 4 + (red - green) / spread;
        }
        hue /= 6;
    }
    light = tint < 0 ? light * (1 + tint) : light * (1 - tint) + tint;
    const double high = light < 0.5 ? light * (1 + saturation) : light + saturation - light * saturation;
    const double low = 2 * light - high;
    const auto part = [=](double shift) { return qBound(0, qRound(partOfHue(low, high, hue + shift) * 255), 255); };
    return qRgb(part(1.0 / 3), part(0), part(-1.0 / 3));
}

} // namespace

bool parseRgb(std::string_view digits, QRgb *rgb)
{
    if (digits.size() != 6 && digits.size() != 8) {
        return false;
    }
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), *rgb, 16);
    *rgb |= opaque;
    return error == std::errc() && end == digits.data() + digits.size();
}

ColorSpec ColorSpec::from(const XmlAttributes &attributes)
{
    ColorSpec spec;
    spec.tint = qBound(-1.0, attributes.real("tint", 0.0), 1.0);
    QRgb rgb = 0;
    const int theme = attributes.number("theme", -1), indexed = attributes.number("indexed", -1);
    if (parseRgb(attributes.value("rgb"), &rgb)) {
        spec.kind = Rgb;
        spec.value = rgb;
    } else if (theme >= 0) {
        spec.kind = Theme;
        spec.value = static_cast<quint32>(theme);
    } else if (indexed >= 0) {
        spec.kind = Indexed;
        spec.value = static_cast<quint32>(indexed);
    }
    return spec;
}

StyleColors::StyleColors()
    : m_theme{0xFFFFFFFF, 0xFF000000, 0xFFEEECE1, 0xFF1F497D, 0xFF4F81BD, 0xFFC0504D, 0xFF9BBB59, 0xFF8064A2,
        0xFF4BACC6, 0xFFF79646, 0xFF0000FF, 0xFF800080}
{
}

void StyleColors::loadTheme(ZipArchive &archive, const QString &part)
{
    std::array<QRgb, themeSize> colors = m_theme;
    ThemeHandler handler(&colors);
    QString ignored;
    if (parsePart(archive, part, &handler, &ignored)) {
        m_theme = colors;
    }
}

StyleColor StyleColors::untinted(const ColorSpec &spec) const
{
    switch (spec.kind) {
    case ColorSpec::Rgb:
        return {true, spec.value};
    case ColorSpec::Theme:
        return spec.value < themeSize ? StyleColor{true, m_theme[spec.value]} : StyleColor();
    case ColorSpec::Indexed:
        if (spec.value < m_palette.size()) {
            return {true, m_palette[spec.value]};
        }
        return spec.value < 64 ? paletteColor(static_cast<int>(spec.value)) : StyleColor();
    case ColorSpec::Unset:
        break;
    }
    return {};
}

StyleColor StyleColors::resolve(const ColorSpec &spec) const
{
    StyleColor color = untinted(spec);
    if (color.isSet && spec.tint != 0.0) {
        color.rgb = tinted(color.rgb, spec.tint);
    }
    return color;
}

} // namespace spreadsheet
