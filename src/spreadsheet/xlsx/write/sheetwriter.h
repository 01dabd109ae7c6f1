#pragma once

#include "spreadsheet/xlsx/write/rowswriter.h"

#include <QStringList>

namespace spreadsheet {

class Package;
class PartEdit;
class XmlOutline;

/// Writes the part of a sheet: what the book knows of it is put into the old part, whose other elements stay byte for
/// byte.
class SheetWriter
{
public:
    SheetWriter(Package &package, CellContext &cells, const QByteArray &linkType)
        : m_package(package)
        , m_cells(cells)
        , m_linkType(linkType)
    {
    }

    /// False with an error in the package.
    bool write(const QString &part, const Sheet &sheet);
    /// What could not be kept.
    const QStringList &warnings() const { return m_warnings; }

private:
    void putLayout(const XmlOutline &outline, const Sheet &sheet, PartEdit *edit) const;
    bool putLinks(const XmlOutline &outline, const QString &part, const Sheet &sheet, PartEdit *edit);
    bool putTables(const XmlOutline &outline, const QString &part, const Sheet &sheet, PartEdit *edit);
    QByteArray columns(const Sheet &sheet, const QByteArray &prefix) const;

    Package &m_package;
    CellContext &m_cells;
    QByteArray m_linkType;
    QStringList m_warnings;
};

} // namespace spreadsheet
