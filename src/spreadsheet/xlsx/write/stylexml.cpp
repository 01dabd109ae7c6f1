#include "spreadsheet/xlsx/write/stylexml.h"

#include "spreadsheet/xlsx/stylenames.h"
#include "spreadsheet/xlsx/write/textescape.h"

namespace spreadsheet {
namespace {

constexpr char usualFont[] = "Calibri";

QByteArray bytes(std::string_view text)
{
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

QByteArray attribute(const char *name, const QByteArray &value)
{
    return QByteArray(" ") + name + "=\"" + value + '"';
}

} // namespace

QByteArray StyleXml::value(const char *name, const QByteArray &value) const
{
    return open(name) + attribute("val", value) + "/>";
}

QByteArray StyleXml::color(const char *name, const StyleColor &color) const
{
    if (!color.isSet) {
        return {};
    }
    const QByteArray digits = QByteArray::number(color.rgb | 0xFF000000, 16).toUpper();
    return open(name) + attribute("rgb", digits) + "/>";
}

QByteArray StyleXml::font(const FontStyle &font) const
{
    QByteArray xml = open("font") + '>';
    xml += font.bold ? open("b") + "/>" : QByteArray();
    xml += font.italic ? open("i") + "/>" : QByteArray();
    xml += font.strikeOut ? open("strike") + "/>" : QByteArray();
    if (font.underline == 1) {
        xml += open("u") + "/>";
    } else if (const std::string_view name = underlineName(font.underline); !name.empty()) {
        xml += value("u", bytes(name));
    }
    if (font.script > 0) {
        xml += value("vertAlign", bytes(fontScripts.nameOf(font.script)));
    }
    xml += value("sz", QByteArray::number(qBound(1.0, font.size, 409.0)));
    xml += color("color", font.color);
    const QString name = font.name.isEmpty() ? QString::fromLatin1(usualFont) : font.name.left(31);
    xml += value("name", cellText(name));
    xml += font.family > 0 || font.name.isEmpty()
               ? value("family", QByteArray::number(font.family > 0 ? font.family : 2))
               : QByteArray();
    xml += font.charset >= 0 ? value("charset", QByteArray::number(font.charset)) : QByteArray();
    return xml + close("font");
}

QByteArray StyleXml::fill(const FillStyle &fill) const
{
    const QByteArray colors = color("fgColor", fill.foreground) + color("bgColor", fill.background);
    const QByteArray pattern = bytes(fillPatterns.nameOf(fill.pattern));
    QByteArray xml = open("fill") + '>' + open("patternFill");
    xml += attribute("patternType", pattern.isEmpty() ? "none" : pattern);
    xml += colors.isEmpty() ? QByteArray("/>") : '>' + colors + close("patternFill");
    return xml + close("fill");
}

QByteArray StyleXml::line(const char *name, const BorderLine &line) const
{
    const QByteArray style = line.style > 0 ? bytes(borderStyles.nameOf(line.style)) : QByteArray();
    if (style.isEmpty()) {
        return open(name) + "/>";
    }
    return open(name) + attribute("style", style) + '>' + color("color", line.color) + close(name);
}

QByteArray StyleXml::border(const BorderStyle &border) const
{
    QByteArray xml = open("border");
    xml += border.diagonalUp ? attribute("diagonalUp", "1") : QByteArray();
    xml += border.diagonalDown ? attribute("diagonalDown", "1") : QByteArray();
    xml += '>' + line("left", border.left) + line("right", border.right) + line("top", border.top)
           + line("bottom", border.bottom) + line("diagonal", border.diagonal);
    return xml + close("border");
}

QByteArray StyleXml::numberFormat(int id, const QString &code) const
{
    return open("numFmt") + attribute("numFmtId", QByteArray::number(id)) + attribute("formatCode", cellText(code))
           + "/>";
}

QByteArray StyleXml::alignment(const Alignment &alignment) const
{
    const Alignment usual;
    QByteArray xml;
    if (alignment.horizontal != usual.horizontal) {
        xml += attribute("horizontal", bytes(horizontalAlignments.nameOf(alignment.horizontal)));
    }
    if (alignment.vertical != usual.vertical) {
        xml += attribute("vertical", bytes(verticalAlignments.nameOf(alignment.vertical)));
    }
    xml += alignment.rotation != 0 ? attribute("textRotation", QByteArray::number(alignment.rotation)) : QByteArray();
    xml += alignment.wrap ? attribute("wrapText", "1") : QByteArray();
    xml += alignment.indent != 0 ? attribute("indent", QByteArray::number(alignment.indent)) : QByteArray();
    xml += alignment.shrink ? attribute("shrinkToFit", "1") : QByteArray();
    xml += alignment.readingOrder != 0 ? attribute("readingOrder", QByteArray::number(alignment.readingOrder))
                                       : QByteArray();
    return xml.isEmpty() ? xml : open("alignment") + xml + "/>";
}

QByteArray StyleXml::format(const CellStyle &style, const FormatNumbers &numbers) const
{
    QByteArray inside = alignment(style.alignment);
    const bool isAligned = !inside.isEmpty();
    const bool isProtected = !style.locked || style.hiddenFormula;
    if (isProtected) {
        inside += open("protection") + (style.locked ? "" : " locked=\"0\"")
                  + (style.hiddenFormula ? " hidden=\"1\"/>" : "/>");
    }
    QByteArray xml = open("xf") + attribute("numFmtId", QByteArray::number(numbers.numberFormat))
                     + attribute("fontId", QByteArray::number(numbers.font))
                     + attribute("fillId", QByteArray::number(numbers.fill))
                     + attribute("borderId", QByteArray::number(numbers.border)) + attribute("xfId", "0");
    xml += numbers.numberFormat != 0 ? attribute("applyNumberFormat", "1") : QByteArray();
    xml += numbers.font != 0 ? attribute("applyFont", "1") : QByteArray();
    xml += numbers.fill != 0 ? attribute("applyFill", "1") : QByteArray();
    xml += numbers.border != 0 ? attribute("applyBorder", "1") : QByteArray();
    xml += isAligned ? attribute("applyAlignment", "1") : QByteArray();
    xml += isProtected ? attribute("applyProtection", "1") : QByteArray();
    return xml + (inside.isEmpty() ? QByteArray("/>") : '>' + inside + close("xf"));
}

} // namespace spreadsheet
