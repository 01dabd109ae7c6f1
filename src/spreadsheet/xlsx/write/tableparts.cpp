#include "spreadsheet/xlsx/write/tableparts.h"

#include "spreadsheet/sheet.h"
#include "spreadsheet/texttable.h"
#include "spreadsheet/xlsx/relationships.h"
#include "spreadsheet/xlsx/write/package.h"
#include "spreadsheet/xlsx/write/startedit.h"
#include "spreadsheet/xlsx/xmlparser.h"
#include "spreadsheet/xlsx/xmltext.h"

#include <algorithm>

namespace spreadsheet {
namespace {

std::string_view view(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

/// True for a table without data, which only shows the row where data may be put in.
bool isWaiting(const XmlOutline &table)
{
    return XmlAttributes::isTrue(view(table.root().attribute("insertRow")));
}

int rowCount(const XmlElement &table, const char *attribute, int otherwise)
{
    const QByteArray count = table.attribute(attribute);
    return count.isEmpty() ? otherwise : count.toInt();
}

} // namespace

TableParts::TableParts(
    Package &package, const QString &sheetPart, const XmlOutline &outline, const Sheet &sheet, const TextTable &texts)
    : m_package(package)
    , m_sheetPart(sheetPart)
    , m_outline(outline)
    , m_sheet(sheet)
    , m_texts(texts)
{
}

bool TableParts::update(PartEdit *sheetEdit)
{
    const XmlElement *list = m_outline.child("tableParts");
    if (!list) {
        return true;
    }
    RelationshipsEdit *relations = m_package.relationships(m_sheetPart);
    if (!relations) {
        return false;
    }
    QSet<QByteArray> dropped;
    for (const XmlElement *item : m_outline.children(m_outline.indexOf(list))) {
        const QByteArray id = item->attribute("id");
        const RelationshipsEdit::Entry *relation = relations->byId(id);
        bool isKept = false;
        if (relation && m_package.contains(relations->targetPart(*relation))) {
            const QString part = relations->targetPart(*relation);
            if (!updateTable(part, &isKept)) {
                return false;
            }
            if (!isKept) {
                m_package.remove(part);
                m_package.remove(Relationships::partFor(part));
            }
        }
        if (!isKept) {
            dropped.insert(id);
            relations->remove(id);
        }
    }
    if (!dropped.isEmpty()) {
        editSheet(*list, dropped, sheetEdit);
    }
    return true;
}

void TableParts::editSheet(const XmlElement &list, const QSet<QByteArray> &dropped, PartEdit *edit) const
{
    const XmlOutline::Elements items = m_outline.children(m_outline.indexOf(&list));
    const int kept = static_cast<int>(std::count_if(items.begin(), items.end(),
        [&dropped](const XmlElement *item) { return !dropped.contains(item->attribute("id")); }));
    if (kept == 0) {
        edit->replace(list.begin, list.end, QByteArray());
        return;
    }
    StartEdit(list).set("count", QByteArray::number(kept)).apply(edit);
    for (const XmlElement *item : items) {
        if (dropped.contains(item->attribute("id"))) {
            edit->replace(item->begin, item->end, QByteArray());
        }
    }
}

bool TableParts::updateTable(const QString &part, bool *isKept)
{
    XmlOutline table(2);
    if (!m_package.outline(part, &table)) {
        return false;
    }
    CellRange range;
    *isKept = rangeOf(table, &range) && isInStep(table, range);
    if (!*isKept) {
        m_dropped << QString::fromUtf8(table.root().attribute("displayName"));
        return true;
    }
    CellRange used = range;
    const int firstDataRow = range.rowFirst + rowCount(table.root(), "headerRowCount", 1);
    if (rowCount(table.root(), "totalsRowCount", 0) == 0) {
        used.rowLast = lastRow(range, firstDataRow);
    }
    const bool isFilled = isWaiting(table) && hasData(firstDataRow, used);
    if (used.rowLast == range.rowLast && !isFilled) {
        return true;
    }
    PartEdit edit;
    stateEncoding(table, &edit);
    const QByteArray reference = rangeReference(used);
    StartEdit start(table.root());
    start.set("ref", reference);
    if (isFilled) {
        start.remove("insertRow").remove("insertRowShift");
    }
    start.apply(&edit);
    for (const XmlElement &element : table.elements()) {
        if (element.depth == 1 && element.is("autoFilter")) {
            StartEdit(element).set("ref", reference).apply(&edit);
        } else if (element.is("sortState")) {
            edit.replace(element.begin, element.end, QByteArray()); // how the rows that were there had been sorted
        }
    }
    return m_package.change(part, std::move(edit));
}

bool TableParts::rangeOf(const XmlOutline &table, CellRange *range) const
{
    return table.root().is("table") && parseRange(view(table.root().attribute("ref")), range);
}

/// True when the cells say what the table's columns are named, and what its row of totals is.
bool TableParts::isInStep(const XmlOutline &table, const CellRange &range) const
{
    const XmlElement *list = table.child("tableColumns");
    if (!list) {
        return false;
    }
    const XmlOutline::Elements columns = table.children(table.indexOf(list));
    if (static_cast<int>(columns.size()) != range.columnLast - range.columnFirst + 1) {
        return false;
    }
    const bool hasHeader = rowCount(table.root(), "headerRowCount", 1) > 0;
    const bool hasTotals = rowCount(table.root(), "totalsRowCount", 0) > 0;
    for (size_t i = 0; i < columns.size(); ++i) {
        const int column = range.columnFirst + static_cast<int>(i);
        const QByteArray label = columns[i]->attribute("totalsRowLabel");
        const QByteArray function = columns[i]->attribute("totalsRowFunction");
        const bool hasFunction = !function.isEmpty() && function != "none";
        if ((hasHeader && !isText(range.rowFirst, column, columns[i]->attribute("name")))
            || (hasTotals && !label.isEmpty() && !isText(range.rowLast, column, label))
            || (hasTotals && hasFunction && !m_sheet.isFormula(range.rowLast, column))) {
            return false;
        }
    }
    return hasHeader || isWaiting(table) || hasCells(range.rowFirst, range);
}

bool TableParts::isText(int row, int column, const QByteArray &attribute) const
{
    const CellRecord *cell = m_sheet.cells().cell(row, column);
    std::string text;
    appendUnescaped(view(attribute), &text);
    return cell && cell->type == CellType::String && m_texts.text(cell->textId()) == text;
}

bool TableParts::hasCells(int row, const CellRange &range) const
{
    const GridRow *found = m_sheet.cells().row(row);
    return found && std::any_of(found->cells.begin(), found->cells.end(), [&range](const CellRecord &cell) {
        return cell.column >= range.columnFirst && cell.column <= range.columnLast;
    });
}

/// Whether a row of the range, from the first one with data on, has more than formats.
bool TableParts::hasData(int firstRow, const CellRange &range) const
{
    const auto isData = [&range](const CellRecord &cell) {
        return cell.column >= range.columnFirst && cell.column <= range.columnLast && cell.type != CellType::Blank;
    };
    for (int row = firstRow; row <= range.rowLast; ++row) {
        const GridRow *found = m_sheet.cells().row(row);
        if (found && std::any_of(found->cells.begin(), found->cells.end(), isData)) {
            return true;
        }
    }
    return false;
}

/// The last row that the table has now, at least its first one with data.
int TableParts::lastRow(const CellRange &range, int firstDataRow) const
{
    int last = range.rowLast;
    if (last >= m_sheet.layout().storedLastRow) {
        // Nothing stood below the table, so what does now belongs to it.
        while (hasCells(last + 1, range)) {
            ++last;
        }
    }
    while (last > firstDataRow && !hasCells(last, range)) {
        --last;
    }
    return last;
}

} // namespace spreadsheet
