#include "spreadsheet/xlsx/write/styleswriter.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/numberformats.h"
#include "spreadsheet/xlsx/write/package.h"
#include "spreadsheet/xlsx/write/schemaorder.h"
#include "spreadsheet/xlsx/write/startedit.h"

namespace spreadsheet {
namespace {

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

/// What the formats of the file refer to can be taken for new ones that look the same.
void StylesWriter::takeFormats(const XmlOutline &outline, const StyleXml &xml)
{
    for (Pool *pool : {&m_numberFormats, &m_fonts, &m_fills, &m_borders}) {
        pool->count = static_cast<int>(itemsOf(outline, pool->container).size());
    }
    // The first two fills are taken for granted by the programs that read them.
    for (const int pattern : {0, 17}) {
        FillStyle fill;
        fill.pattern = pattern;
        const int place = pattern == 0 ? 0 : 1;
        if (m_fills.count <= place) {
            m_fills.added += xml.fill(fill);
            ++m_fills.count;
        }
        if (m_book.loadedFormats == 0) {
            m_fills.numbers.insert(xml.fill(fill), place);
        }
    }
    m_nextCode = firstCustomNumberFormat;
    for (const XmlElement *item : itemsOf(outline, "numFmts")) {
        const int id = item->attribute("numFmtId").toInt();
        const QString code = QString::fromUtf8(item->attribute("formatCode"));
        m_nextCode = std::max(m_nextCode, std::min(id, 1000000) + 1);
        if (!m_codes.contains(code)) {
            m_codes.insert(code, id);
        }
    }
    const XmlOutline::Elements formats = itemsOf(outline, "cellXfs");
    m_presentCount = static_cast<quint32>(formats.size());
    m_firstNew = m_presentCount > 0 ? m_book.loadedFormats : 0;
    const auto keep = [](Pool &pool, const QByteArray &item, const QByteArray &number) {
        const int known = number.toInt();
        if (known >= 0 && known < pool.count && !pool.numbers.contains(item)) {
            pool.numbers.insert(item, known);
        }
    };
    for (quint32 i = 0; i < m_presentCount && i < m_firstNew; ++i) {
        const CellStyle &style = m_book.format(i)->style();
        keep(m_fonts, xml.font(style.font), formats[i]->attribute("fontId"));
        keep(m_fills, xml.fill(style.fill), formats[i]->attribute("fillId"));
        keep(m_borders, xml.border(style.border), formats[i]->attribute("borderId"));
    }
}

int StylesWriter::numberFormat(const CellStyle &style, const StyleXml &xml)
{
    if (style.numberCode.isEmpty()) {
        return style.numberFormat >= 0 && style.numberFormat < firstCustomNumberFormat ? style.numberFormat : 0;
    }
    const auto found = m_codes.constFind(style.numberCode);
    if (found != m_codes.constEnd()) {
        return *found;
    }
    m_codes.insert(style.numberCode, m_nextCode);
    m_numberFormats.added += xml.numberFormat(m_nextCode, style.numberCode);
    ++m_numberFormats.count;
    return m_nextCode++;
}

QByteArray StylesWriter::newFormats(const StyleXml &xml)
{
    QByteArray formats;
    for (size_t i = m_firstNew; i < m_book.formats.size(); ++i) {
        const CellStyle &style = m_book.formats[i]->style();
        const StyleXml::FormatNumbers numbers{numberFormat(style, xml), m_fonts.use(xml.font(style.font)),
            m_fills.use(xml.fill(style.fill)), m_borders.use(xml.border(style.border))};
        formats += xml.format(style, numbers);
    }
    return formats;
}

bool StylesWriter::write(Package &package, const QString &part)
{
    XmlOutline outline(2);
    if (!package.outline(part, &outline)) {
        return false;
    }
    const StyleXml xml(outline.root().prefix());
    takeFormats(outline, xml);
    const QByteArray formats = newFormats(xml);
    if (formats.isEmpty()) {
        return true;
    }
    PartEdit edit;
    stateEncoding(outline, &edit);
    for (const Pool *pool : {&m_numberFormats, &m_fonts, &m_fills, &m_borders}) {
        addItems(outline, pool->container, pool->added, pool->count, &edit);
    }
    const int count = static_cast<int>(m_presentCount + m_book.formats.size() - m_firstNew);
    addItems(outline, "cellXfs", formats, count, &edit);
    return package.change(part, std::move(edit));
}

} // namespace spreadsheet
