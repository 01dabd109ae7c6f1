#include "spreadsheet/xlsx/write/styleswriter.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/bookfile.h"
#include "spreadsheet/numberformats.h"
#include "spreadsheet/xlsx/write/package.h"
#include "spreadsheet/xlsx/write/schemaorder.h"
#include "spreadsheet/xlsx/write/startedit.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr int mostFormats = 65490; // of cells, for the programs that the file is for

/// Adds items to a container of the part, which is made when there is none.
void addItems(const XmlOutline &outline, const char *container, const QByteArray &items, int count, PartEdit *edit)
{
    if (items.isEmpty()) {
        return;
    }
    if (const XmlElement *present = outline.child(container)) {
        appendContent(*present, items, count, edit);
        return;
    }
    const QByteArray name = outline.root().prefix() + container;
    const QByteArray element = '<' + name + " count=\"" + QByteArray::number(count) + "\">" + items + "</" + name + '>';
    SchemaOrder::ofStyles().put(outline, container, element, edit);
}

XmlOutline::Elements itemsOf(const XmlOutline &outline, const char *container)
{
    const XmlElement *found = outline.child(container);
    return found ? outline.children(outline.indexOf(found)) : XmlOutline::Elements();
}

/// Whether nothing is lost of a part of a format when it is read as a style.
bool isKnownChild(const XmlElement &child)
{
    static const QList<QByteArray> known{"horizontal", "vertical", "textRotation", "wrapText", "indent", "shrinkToFit",
        "readingOrder", "locked", "hidden"};
    const bool hasKnown = std::all_of(child.attributes.begin(), child.attributes.end(),
        [](const XmlElement::Attribute &attribute) { return known.contains(attribute.name); });
    return hasKnown && (child.is("alignment") || child.is("protection"));
}

/// Whether the attributes of a cell format say what its style says, and no more: that it is based on the first named
/// style, and that what differs from it counts.
bool saysNoMore(const XmlElement &format, const CellStyle &style)
{
    const bool isPlainText = style.alignment == Alignment();
    for (const auto &[name, value] : format.attributes) {
        const bool isOff = value == "0" || value == "false" || value == "off";
        const bool isNumber = name == "numFmtId" || name == "fontId" || name == "fillId" || name == "borderId";
        const bool needsNothing = (name == "applyNumberFormat" && format.attribute("numFmtId") == "0")
                                  || (name == "applyFont" && format.attribute("fontId") == "0")
                                  || (name == "applyFill" && format.attribute("fillId") == "0")
                                  || (name == "applyBorder" && format.attribute("borderId") == "0")
                                  || (name == "applyAlignment" && isPlainText)
                                  || (name == "applyProtection" && style.locked && !style.hiddenFormula);
        if (!isNumber && !needsNothing && name.startsWith("apply") == isOff) {
            return false;
        }
    }
    return true;
}

} // namespace

int StylesWriter::Pool::use(const QByteArray &item)
{
    const auto found = numbers.constFind(item);
    if (found != numbers.constEnd()) {
        return *found;
    }
    added += item;
    numbers.insert(item, count);
    return count++;
}

template<typename MakeItem>
int StylesWriter::Pool::known(int own, MakeItem makeItem)
{
    if (own < 0 || own >= count) {
        return -1;
    }
    sameAs.resize(static_cast<size_t>(count), -1);
    int &same = sameAs[static_cast<size_t>(own)];
    if (same < 0) {
        const QByteArray item = makeItem();
        keep(item, own);
        same = numbers.value(item);
    }
    return same;
}

void StylesWriter::Pool::keep(const QByteArray &item, int number)
{
    if (number >= 0 && number < count && !numbers.contains(item)) {
        numbers.insert(item, number);
    }
}

bool StylesWriter::begin(Package &package, const QString &part)
{
    m_part = part;
    if (!package.outline(part, &m_outline)) {
        return false;
    }
    m_xml = StyleXml(m_outline.root().prefix());
    for (Pool *pool : {&m_numberFormats, &m_fonts, &m_fills, &m_borders, &m_formats}) {
        pool->count = static_cast<int>(itemsOf(m_outline, pool->container).size());
    }
    m_firstNew = m_formats.count > 0 ? m_book.loadedFormats : 0;
    m_numbers.assign(m_book.formats.size(), notKnown);
    takeFills();
    takeNumberFormats();
    takeFormats();
    if (m_firstNew == 0) {
        number(0); // the first one counts for cells that have none
    }
    return true;
}

/// The first two fills are taken for granted by the programs that read them.
void StylesWriter::takeFills()
{
    for (const int pattern : {0, 17}) {
        FillStyle fill;
        fill.pattern = pattern;
        const int place = pattern == 0 ? 0 : 1;
        if (m_fills.count <= place) {
            m_fills.added += m_xml.fill(fill);
            ++m_fills.count;
        }
        if (m_book.loadedFormats == 0) {
            m_fills.numbers.insert(m_xml.fill(fill), place);
        }
    }
}

void StylesWriter::takeNumberFormats()
{
    m_nextCode = firstCustomNumberFormat;
    for (const XmlElement *item : itemsOf(m_outline, m_numberFormats.container)) {
        const int id = item->attribute("numFmtId").toInt();
        const QString code = QString::fromUtf8(item->attribute("formatCode"));
        m_nextCode = std::max(m_nextCode, std::min(id, 1000000) + 1);
        if (!m_codes.contains(code)) {
            m_codes.insert(code, id);
        }
    }
}

/// The formats of the file, and what they refer to, can be taken for new ones that look the same.
void StylesWriter::takeFormats()
{
    const XmlOutline::Elements formats = itemsOf(m_outline, m_formats.container);
    // In one go over all elements, since looking for the children of each format would take too long.
    const std::vector<XmlElement> &elements = m_outline.elements();
    std::vector<bool> hasMore(elements.size(), false);
    for (const XmlElement &element : elements) {
        if (element.depth == 3 && !isKnownChild(element)) {
            hasMore[static_cast<size_t>(element.parent)] = true;
        }
    }
    const auto shared = std::min<size_t>(formats.size(), m_firstNew);
    for (size_t i = 0; i < shared; ++i) {
        const XmlElement &format = *formats[i];
        const CellStyle &style = m_book.formats[i]->style();
        const auto number = [&format](const char *name) { return format.attribute(name).toInt(); };
        const StyleXml::FormatNumbers numbers{numberFormat(style),
            m_fonts.known(number("fontId"), [&] { return m_xml.font(style.font); }),
            m_fills.known(number("fillId"), [&] { return m_xml.fill(style.fill); }),
            m_borders.known(number("borderId"), [&] { return m_xml.border(style.border); })};
        const bool isSound = numbers.font >= 0 && numbers.fill >= 0 && numbers.border >= 0;
        if (isSound && !hasMore[static_cast<size_t>(m_outline.indexOf(&format))] && saysNoMore(format, style)) {
            m_formats.keep(m_xml.format(style, numbers), static_cast<int>(i));
        }
    }
}

int StylesWriter::numberFormat(const CellStyle &style)
{
    if (style.numberCode.isEmpty()) {
        return style.numberFormat >= 0 && style.numberFormat < firstCustomNumberFormat ? style.numberFormat : 0;
    }
    const auto found = m_codes.constFind(style.numberCode);
    if (found != m_codes.constEnd()) {
        return *found;
    }
    m_codes.insert(style.numberCode, m_nextCode);
    m_numberFormats.added += m_xml.numberFormat(m_nextCode, style.numberCode);
    ++m_numberFormats.count;
    return m_nextCode++;
}

/// With fonts and the like that are added where they are missing.
QByteArray StylesWriter::formatXml(const CellStyle &style)
{
    const StyleXml::FormatNumbers numbers{numberFormat(style), m_fonts.use(m_xml.font(style.font)),
        m_fills.use(m_xml.fill(style.fill)), m_borders.use(m_xml.border(style.border))};
    return m_xml.format(style, numbers);
}

int StylesWriter::addFormat(quint32 format)
{
    const Format *found = m_book.format(format);
    if (!found) {
        return 0;
    }
    const QByteArray xml = formatXml(found->style());
    const bool hasRoom = m_formats.count < mostFormats || m_formats.numbers.contains(xml);
    if (hasRoom) {
        m_numbers[format] = m_formats.use(xml);
        return m_numbers[format];
    }
    m_isFull = true;
    m_error = found->isDate() ? BookFile::noFormatForDates() : m_error;
    m_numbers[format] = 0;
    return 0;
}

bool StylesWriter::finish(Package &package)
{
    if (!m_error.isEmpty()) {
        return false;
    }
    if (m_part.isEmpty() || m_formats.added.isEmpty()) {
        return true;
    }
    PartEdit edit;
    openPart(m_outline, &edit);
    for (const Pool *pool : {&m_numberFormats, &m_fonts, &m_fills, &m_borders, &m_formats}) {
        addItems(m_outline, pool->container, pool->added, pool->count, &edit);
    }
    return package.change(m_part, std::move(edit));
}

} // namespace spreadsheet
