#pragma once

#include "spreadsheet/book.h"

#include "support/printers.h"

#include <QMap>

/// Bytes of a zip archive that holds parts by name.
QByteArray zipped(const QMap<QByteArray, QByteArray> &parts, bool packed = true);

/// The parts of a workbook with one sheet, "Data", each of which can be replaced.
class XlsxTestBook
{
public:
    XlsxTestBook();

    /// Of the sheet, what stands between the tags of its data.
    XlsxTestBook &rows(const QByteArray &rows) { return sheet("<sheetData>" + rows + "</sheetData>"); }
    /// What stands in the sheet's root.
    XlsxTestBook &sheet(const QByteArray &content);
    /// Items of the shared texts.
    XlsxTestBook &texts(const QByteArray &items);
    /// What stands in the root of the styles.
    XlsxTestBook &styles(const QByteArray &content);
    /// The relations of a part that has none yet.
    XlsxTestBook &relations(const QByteArray &part, const QByteArray &relations);
    XlsxTestBook &part(const QByteArray &name, const QByteArray &content)
    {
        m_parts[name] = content;
        return *this;
    }
    XlsxTestBook &without(const QByteArray &name)
    {
        m_parts.remove(name);
        return *this;
    }
    XlsxTestBook &replace(const QByteArray &name, const QByteArray &before, const QByteArray &after)
    {
        m_parts[name].replace(before, after);
        return *this;
    }
    const QMap<QByteArray, QByteArray> &parts() const { return m_parts; }
    QByteArray zip(bool packed = true) const { return zipped(m_parts, packed); }

    static const QByteArray sheetName;
    static const QByteArray officeRelations; ///< what types of relations begin with

private:
    QMap<QByteArray, QByteArray> m_parts;
};

/// A book read from bytes that were put into a file.
class LoadedXlsx
{
public:
    explicit LoadedXlsx(const QByteArray &file);
    explicit LoadedXlsx(const XlsxTestBook &book)
        : LoadedXlsx(book.zip(false))
    {
    }
    ~LoadedXlsx();
    Q_DISABLE_COPY(LoadedXlsx)

    bool isLoaded() const { return m_isLoaded; }
    spreadsheet::Book &book() { return m_book; }
    /// Null when it can't be read.
    spreadsheet::Sheet *first() { return m_book.getSheet(0); }
    /// All used cells of the first sheet, such as `A1="text" B1=1.5 C1=true D1=~/2 E1=#N/A F2=d:45322.5`: a blank one
    /// is a "~", a format other than the first stands behind "/", a formula in braces. What went wrong instead of them.
    QString cells();

private:
    QString m_path;
    spreadsheet::Book m_book{spreadsheet::FileKind::Xlsx};
    bool m_isLoaded = false;
};
