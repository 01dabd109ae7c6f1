#include "spreadsheet/xlsx/sheetextras.h"

#include "spreadsheet/sheetlayout.h"
#include "spreadsheet/sizes.h"
#include "spreadsheet/xlsx/relationships.h"
#include "spreadsheet/xlsx/xlsxsource.h"
#include "spreadsheet/xlsx/xmlparser.h"
#include "spreadsheet/xlsx/xmltext.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr size_t mostHyperlinks = 1 << 20;
constexpr double greatestWidth = 255;

/// Sorts by column; of those that overlap the first one counts.
void putInOrder(std::vector<ColumnRecord> *columns)
{
    std::stable_sort(columns->begin(), columns->end(),
        [](const ColumnRecord &a, const ColumnRecord &b) { return a.first < b.first; });
    int free = 0;
    const auto gone = std::remove_if(columns->begin(), columns->end(), [&free](ColumnRecord &column) {
        column.first = std::max(column.first, free);
        free = std::max(free, column.last + 1);
        return column.first > column.last;
    });
    columns->erase(gone, columns->end());
}

} // namespace

void SheetExtras::takeDefaults(const XmlAttributes &attributes)
{
    m_layout->defaultWidth = std::min(attributes.real("defaultColWidth", -1), greatestWidth);
    m_layout->defaultHeight = attributes.real("defaultRowHeight", -1);
    m_layout->otherRowsHidden = attributes.flag("zeroHeight", false);
}

void SheetExtras::takeColumns(const XmlAttributes &attributes)
{
    constexpr int columnCount = maxColumns(FileKind::Xlsx);
    ColumnRecord columns;
    columns.first = attributes.number("min", 0) - 1;
    columns.last = std::min(attributes.number("max", 0), columnCount) - 1;
    if (columns.first < 0 || columns.last < columns.first || m_layout->columns.size() >= columnCount) {
        return;
    }
    columns.width = std::min(attributes.real("width", -1), greatestWidth);
    columns.hidden = attributes.flag("hidden", false);
    const int format = attributes.number("style", -1);
    columns.hasFormat = format > 0;
    columns.format = static_cast<quint32>(std::max(format, 0));
    for (const char **item = attributes.list(); *item; item += 2) {
        const std::string_view name = item[0];
        if (name != "min" && name != "max" && name != "width" && name != "customWidth" && name != "hidden"
            && name != "style") {
            appendXmlAttribute(name, item[1], &columns.otherAttributes);
        }
    }
    m_layout->columns.push_back(columns);
}

void SheetExtras::takeMerge(const XmlAttributes &attributes)
{
    CellRange range;
    if (parseRange(attributes.value("ref"), &range)) {
        m_layout->merges.push_back(range);
    }
}

bool SheetExtras::takeHyperlink(const XmlAttributes &attributes)
{
    Hyperlink link;
    if (!parseRange(attributes.value("ref"), &link.range)) {
        return true; // nothing that it could belong to
    }
    link.target = QString::fromUtf8(attributes.find("location"));
    link.stored = QByteArrayLiteral("<hyperlink");
    for (const char **item = attributes.list(); *item; item += 2) {
        appendXmlAttribute(item[0], item[1], &link.stored);
    }
    link.stored.append("/>");
    m_relationIds.push_back(QString::fromUtf8(attributes.findPrefixed("id")));
    m_hasRelations = m_hasRelations || !m_relationIds.back().isEmpty();
    m_layout->hyperlinks.push_back(std::move(link));
    return m_relationIds.size() <= mostHyperlinks;
}

bool SheetExtras::finish(XlsxSource &source, const QString &part, QString *error)
{
    putInOrder(&m_layout->columns);
    return !m_hasRelations || findTargets(source, part, error);
}

bool SheetExtras::findTargets(XlsxSource &source, const QString &part, QString *error)
{
    Relationships relations;
    if (!relations.load(*source.archive, part, error)) {
        return false;
    }
    for (size_t i = 0; i < m_relationIds.size(); ++i) {
        const Relationships::Relation *relation = relations.byId(m_relationIds[i]);
        if (!relation) {
            continue;
        }
        QString &target = m_layout->hyperlinks[i].target;
        target = target.isEmpty() ? relation->target : relation->target + QLatin1Char('#') + target;
    }
    return true;
}

} // namespace spreadsheet
