#pragma once

#include "spreadsheet/cellreference.h"

#include <QSet>
#include <QStringList>

namespace spreadsheet {

class Package;
class PartEdit;
class Sheet;
class TextTable;
class XmlOutline;
struct XmlElement;

/// Keeps the tables of a sheet in step with its new cells: a table whose headers are still there gets the rows that are
/// used now, another one goes, since programs call a file damaged in which table and cells differ.
class TableParts
{
public:
    /// `sheetPart` and `outline` are those of the old sheet.
    TableParts(Package &package, const QString &sheetPart, const XmlOutline &outline, const Sheet &sheet,
        const TextTable &texts);

    /// False when the package can't be read, which then has an error.
    bool update(PartEdit *sheetEdit);
    /// Names of the tables that are gone.
    const QStringList &dropped() const { return m_dropped; }

private:
    bool updateTable(const QString &part, bool *isKept);
    bool isInStep(const XmlOutline &table, const CellRange &range) const;
    bool rangeOf(const XmlOutline &table, CellRange *range) const;
    bool isText(int row, int column, const QByteArray &attribute) const;
    bool hasCells(int row, const CellRange &range) const;
    bool hasData(int firstRow, const CellRange &range) const;
    int lastRow(const CellRange &range, int firstDataRow) const;
    void editSheet(const XmlElement &list, const QSet<QByteArray> &dropped, PartEdit *edit) const;

    Package &m_package;
    QString m_sheetPart;
    const XmlOutline &m_outline;
    const Sheet &m_sheet;
    const TextTable &m_texts;
    QStringList m_dropped;
};

} // namespace spreadsheet
