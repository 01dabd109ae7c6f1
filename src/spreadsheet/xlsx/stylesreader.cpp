#include "spreadsheet/xlsx/stylesreader.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/numberformats.h"
#include "spreadsheet/xlsx/stylecolors.h"
#include "spreadsheet/xlsx/stylenames.h"
#include "spreadsheet/xlsx/xmlparser.h"

#include <QHash>

namespace spreadsheet {
namespace {

constexpr size_t mostFormats = 65536; // no program writes more of any kind

/// A part of a style whose colours can't be told before the palette is read, which stands behind.
template<typename Style, int colorCount>
struct Uncolored
{
    Style style;
    ColorSpec colors[colorCount];
};
using FontItem = Uncolored<FontStyle, 1>;
using FillItem = Uncolored<FillStyle, 2>;
using BorderItem = Uncolored<BorderStyle, 5>;

struct FormatItem
{
    int number = 0, font = 0, fill = 0, border = 0;
    Alignment alignment;
    bool locked = true, hiddenFormula = false;
};

constexpr BorderLine BorderStyle::*borderLines[] = {
    &BorderStyle::left, &BorderStyle::right, &BorderStyle::top, &BorderStyle::bottom, &BorderStyle::diagonal};

/// Number of a border's side by the name of its element; below 0 for other names.
int borderSide(std::string_view name)
{
    constexpr std::string_view names[] = {"left", "right", "top", "bottom", "diagonal", "start", "end"};
    for (int i = 0; i < 7; ++i) {
        if (names[i] == name) {
            return i < 5 ? i : i - 5;
        }
    }
    return -1;
}

class StylesHandler final : public XmlHandler
{
public:
    bool startElement(std::string_view name, const XmlAttributes &attributes) override
    {
        switch (m_place) {
        case Outside:
            m_place = Root;
            return name == "styleSheet";
        case Root:
            return enter(name);
        case Numbers:
            if (name == "numFmt" && m_codes.size() < static_cast<int>(mostFormats)) {
                m_codes.insert(attributes.number("numFmtId", 0), QString::fromUtf8(attributes.find("formatCode")));
            }
            return false;
        case Fonts:
            return name == "font" && begin(&m_fonts, Font);
        case Font:
            takeFont(name, attributes);
            return false;
        case Fills:
            return name == "fill" && begin(&m_fills, Fill);
        case Fill:
            return takeFill(name, attributes);
        case Borders:
            return beginBorder(name, attributes);
        case Border:
            m_side = borderSide(name);
            if (m_side >= 0) {
                (m_borders.back().style.*borderLines[m_side]).style = borderStyles.valueOf(
                    attributes.value("style"), 0);
                m_place = Side;
            }
            return m_side >= 0;
        case Side:
            if (name == "color") {
                m_borders.back().colors[m_side] = ColorSpec::from(attributes);
            }
            return false;
        case Formats:
            return beginFormat(name, attributes);
        case Format:
            takeFormat(name, attributes);
            return false;
        case Colors:
            return name == "indexedColors" || (name == "rgbColor" && takePaletteColor(attributes));
        }
        return false;
    }

    void endElement(std::string_view name) override
    {
        switch (m_place) {
        case Font:
            m_place = Fonts;
            break;
        case Fill:
            m_place = name == "fill" ? Fills : Fill;
            break;
        case Side:
            m_place = Border;
            break;
        case Border:
            m_place = Borders;
            break;
        case Format:
            m_place = Formats;
            break;
        case Colors:
            m_place = name == "colors" ? Root : Colors;
            break;
        default:
            m_place = Root;
        }
    }

    /// Fills the book's formats from what was read.
    void finishFormats(StyleColors colors, BookData &book)
    {
        colors.setPalette(m_palette);
        for (FontItem &font : m_fonts) {
            font.style.color = colors.resolve(font.colors[0]);
        }
        for (FillItem &fill : m_fills) {
            fill.style.foreground = colors.resolve(fill.colors[0]);
            fill.style.background = colors.resolve(fill.colors[1]);
        }
        for (BorderItem &border : m_borders) {
            for (int side = 0; side < 5; ++side) {
                (border.style.*borderLines[side]).color = colors.resolve(border.colors[side]);
            }
        }
        for (const FormatItem &format : m_formats) {
            book.addFormat(styleOf(format));
        }
    }

private:
    enum Place { Outside, Root, Numbers, Fonts, Font, Fills, Fill, Borders, Border, Side, Formats, Format, Colors };

    bool enter(std::string_view name)
    {
        constexpr struct
        {
            std::string_view name;
            Place place;
        } sections[] = {{"numFmts", Numbers}, {"fonts", Fonts}, {"fills", Fills}, {"borders", Borders},
            {"cellXfs", Formats}, {"colors", Colors}};
        for (const auto &section : sections) {
            if (section.name == name) {
                m_place = section.place;
                return true;
            }
        }
        return false;
    }

    template<typename Item>
    bool begin(std::vector<Item> *items, Place place)
    {
        if (items->size() >= mostFormats) {
            return fail(QStringLiteral("The workbook has too many formats"));
        }
        items->emplace_back();
        m_place = place;
        return true;
    }

    void takeFont(std::string_view name, const XmlAttributes &attributes)
    {
        FontStyle &font = m_fonts.back().style;
        if (name == "name") {
            font.name = QString::fromUtf8(attributes.find("val"));
        } else if (name == "sz") {
            font.size = qBound(1.0, attributes.real("val", font.size), 409.0);
        } else if (name == "b") {
            font.bold = attributes.flag("val", true);
        } else if (name == "i") {
            font.italic = attributes.flag("val", true);
        } else if (name == "strike") {
            font.strikeOut = attributes.flag("val", true);
        } else if (name == "u") {
            font.underline = attributes.find("val") ? underlineOf(attributes.value("val")) : 1;
        } else if (name == "vertAlign") {
            font.script = fontScripts.valueOf(attributes.value("val"), 0);
        } else if (name == "family") {
            font.family = qBound(0, attributes.number("val", 0), 14);
        } else if (name == "charset") {
            font.charset = qBound(-1, attributes.number("val", -1), 255);
        } else if (name == "color") {
            m_fonts.back().colors[0] = ColorSpec::from(attributes);
        }
    }

    bool takeFill(std::string_view name, const XmlAttributes &attributes)
    {
        FillItem &fill = m_fills.back();
        if (name == "patternFill") {
            fill.style.pattern = fillPatterns.valueOf(attributes.value("patternType"), 0);
        } else if (name == "fgColor") {
            fill.colors[0] = ColorSpec::from(attributes);
        } else if (name == "bgColor") {
            fill.colors[1] = ColorSpec::from(attributes);
        } else if (name == "gradientFill") {
            fill.style.pattern = 1; // its first colour stands for it
        } else if (name == "color" && fill.colors[0].kind == ColorSpec::Unset) {
            fill.colors[0] = ColorSpec::from(attributes);
        }
        return true;
    }

    bool beginBorder(std::string_view name, const XmlAttributes &attributes)
    {
        if (name != "border" || !begin(&m_borders, Border)) {
            return false;
        }
        m_borders.back().style.diagonalUp = attributes.flag("diagonalUp", false);
        m_borders.back().style.diagonalDown = attributes.flag("diagonalDown", false);
        return true;
    }

    bool beginFormat(std::string_view name, const XmlAttributes &attributes)
    {
        if (name != "xf" || !begin(&m_formats, Format)) {
            return false;
        }
        FormatItem &format = m_formats.back();
        format.number = attributes.number("numFmtId", 0);
        format.font = attributes.number("fontId", 0);
        format.fill = attributes.number("fillId", 0);
        format.border = attributes.number("borderId", 0);
        return true;
    }

    void takeFormat(std::string_view name, const XmlAttributes &attributes)
    {
        FormatItem &format = m_formats.back();
        if (name == "protection") {
            format.locked = attributes.flag("locked", true);
            format.hiddenFormula = attributes.flag("hidden", false);
        } else if (name == "alignment") {
            Alignment &alignment = format.alignment;
            alignment.horizontal = horizontalAlignments.valueOf(attributes.value("horizontal"), alignment.horizontal);
            alignment.vertical = verticalAlignments.valueOf(attributes.value("vertical"), alignment.vertical);
            alignment.wrap = attributes.flag("wrapText", false);
            alignment.shrink = attributes.flag("shrinkToFit", false);
            alignment.rotation = qBound(0, attributes.number("textRotation", 0), 255);
            alignment.indent = qBound(0, attributes.number("indent", 0), 250);
            alignment.readingOrder = qBound(0, attributes.number("readingOrder", 0), 2);
        }
    }

    bool takePaletteColor(const XmlAttributes &attributes)
    {
        constexpr size_t paletteSize = 64;
        QRgb rgb = 0xFF000000;
        parseRgb(attributes.value("rgb"), &rgb);
        if (m_palette.size() < paletteSize) {
            m_palette.push_back(rgb);
        }
        return false;
    }

    template<typename Item, typename Style>
    static void take(const std::vector<Item> &items, int index, Style *style)
    {
        if (index >= 0 && static_cast<size_t>(index) < items.size()) {
            *style = items[static_cast<size_t>(index)].style;
        }
    }

    CellStyle styleOf(const FormatItem &format) const
    {
        CellStyle style;
        take(m_fonts, format.font, &style.font);
        take(m_fills, format.fill, &style.fill);
        take(m_borders, format.border, &style.border);
        style.alignment = format.alignment;
        style.locked = format.locked;
        style.hiddenFormula = format.hiddenFormula;
        style.numberCode = m_codes.value(format.number);
        // A number of the file's own without a code shows numbers as they are.
        const bool isKnown = format.number < firstCustomNumberFormat || !style.numberCode.isEmpty();
        style.numberFormat = isKnown ? format.number : 0;
        return style;
    }

    Place m_place = Outside;
    int m_side = 0;
    QHash<int, QString> m_codes;
    std::vector<FontItem> m_fonts;
    std::vector<FillItem> m_fills;
    std::vector<BorderItem> m_borders;
    std::vector<FormatItem> m_formats;
    std::vector<QRgb> m_palette;
};

} // namespace

bool readStyles(
    ZipArchive &archive, const QString &stylesPart, const QString &themePart, BookData &book, QString *error)
{
    if (stylesPart.isEmpty()) {
        return true;
    }
    StylesHandler handler;
    if (!parsePart(archive, stylesPart, &handler, error)) {
        return false;
    }
    StyleColors colors;
    if (!themePart.isEmpty()) {
        colors.loadTheme(archive, themePart);
    }
    handler.finishFormats(colors, book);
    return true;
}

} // namespace spreadsheet
