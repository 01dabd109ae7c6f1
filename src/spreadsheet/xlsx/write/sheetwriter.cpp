#include "spreadsheet/xlsx/write/sheetwriter.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xlsx/write/linkswriter.h"
#include "spreadsheet/xlsx/write/package.h"
#include "spreadsheet/xlsx/write/schemaorder.h"
#include "spreadsheet/xlsx/write/startedit.h"
#include "spreadsheet/xlsx/write/styleswriter.h"
#include "spreadsheet/xlsx/write/tableparts.h"

namespace spreadsheet {
namespace {

constexpr double usualWidth = 9.140625; // characters

QByteArray dimension(const Sheet &sheet, const QByteArray &prefix)
{
    CellRange used{sheet.firstRow(), sheet.lastRow() - 1, sheet.firstCol(), sheet.lastCol() - 1};
    used = used.rowLast < 0 ? CellRange() : used;
    return '<' + prefix + "dimension ref=\"" + rangeReference(used) + "\"/>";
}

QByteArray merges(const Sheet &sheet, const QByteArray &prefix)
{
    const std::vector<CellRange> &ranges = sheet.layout().merges;
    if (ranges.empty()) {
        return {};
    }
    QByteArray xml = '<' + prefix + "mergeCells count=\"" + QByteArray::number(static_cast<int>(ranges.size())) + "\">";
    for (const CellRange &range : ranges) {
        xml += '<' + prefix + "mergeCell ref=\"" + rangeReference(range) + "\"/>";
    }
    return xml + "</" + prefix + "mergeCells>";
}

} // namespace

QByteArray SheetWriter::columns(const Sheet &sheet, const QByteArray &prefix) const
{
    const SheetLayout &layout = sheet.layout();
    if (layout.columns.empty()) {
        return {};
    }
    QByteArray xml = '<' + prefix + "cols>";
    for (const ColumnRecord &column : layout.columns) {
        const double other = layout.defaultWidth > 0 ? layout.defaultWidth : usualWidth;
        xml += '<' + prefix + "col min=\"" + QByteArray::number(column.first + 1) + "\" max=\""
               + QByteArray::number(column.last + 1) + "\" width=\""
               + QByteArray::number(column.width < 0 ? other : column.width, 'g', QLocale::FloatingPointShortest) + '"';
        xml += column.hasFormat ? " style=\"" + QByteArray::number(m_cells.styles.number(column.format)) + '"'
                                : QByteArray();
        xml += column.hidden ? " hidden=\"1\"" : "";
        xml += column.width < 0 ? "" : " customWidth=\"1\"";
        xml += column.otherAttributes + "/>";
    }
    return xml + "</" + prefix + "cols>";
}

void SheetWriter::putLayout(const XmlOutline &outline, const Sheet &sheet, PartEdit *edit) const
{
    const QByteArray prefix = outline.root().prefix();
    const SchemaOrder &order = SchemaOrder::ofSheet();
    order.put(outline, "dimension", dimension(sheet, prefix), edit);
    if (sheet.layout().columnsChanged) {
        order.put(outline, "cols", columns(sheet, prefix), edit);
    }
    order.put(
        outline, "sheetData",
        [this, &sheet, prefix](DeflatedPart &out) { RowsWriter(m_cells, sheet.cells(), prefix, out).write(); }, edit);
    if (sheet.layout().mergesChanged) {
        order.put(outline, "mergeCells", merges(sheet, prefix), edit);
    }
}

bool SheetWriter::putLinks(const XmlOutline &outline, const QString &part, const Sheet &sheet, PartEdit *edit)
{
    if (!sheet.layout().hyperlinksChanged) {
        return true;
    }
    RelationshipsEdit *relations = m_package.relationships(part);
    if (!relations) {
        return false;
    }
    LinksWriter links(outline, *relations, m_linkType);
    SchemaOrder::ofSheet().put(outline, "hyperlinks", links.write(sheet.layout().hyperlinks), edit);
    if (links.leftOutCount() > 0) {
        m_warnings << QStringLiteral("Sheet '%1': %2 hyperlink(s) left out, since no workbook can hold them")
                          .arg(sheet.name())
                          .arg(links.leftOutCount());
    }
    return true;
}

bool SheetWriter::putTables(const XmlOutline &outline, const QString &part, const Sheet &sheet, PartEdit *edit)
{
    TableParts tables(m_package, part, outline, sheet, m_cells.book.texts);
    if (!tables.update(edit)) {
        return false;
    }
    for (const QString &name : tables.dropped()) {
        m_warnings << QStringLiteral("Sheet '%1': the table '%2' is a plain range now, since its headers are gone")
                          .arg(sheet.name(), name);
    }
    return true;
}

bool SheetWriter::write(const QString &part, const Sheet &sheet)
{
    XmlOutline outline(2, "tableParts");
    if (!m_package.outline(part, &outline)) {
        return false;
    }
    PartEdit edit;
    openPart(outline, &edit);
    putLayout(outline, sheet, &edit);
    return putLinks(outline, part, sheet, &edit) && putTables(outline, part, sheet, &edit)
           && m_package.change(part, std::move(edit));
}

} // namespace spreadsheet
