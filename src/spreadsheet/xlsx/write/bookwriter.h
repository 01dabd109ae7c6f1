#pragma once

#include "spreadsheet/xlsx/write/formulawriter.h"
#include "spreadsheet/xlsx/write/package.h"
#include "spreadsheet/xlsx/write/styleswriter.h"
#include "spreadsheet/xlsx/xlsxsource.h"

namespace spreadsheet {

class SharedTextsEdit;
class XmlOutline;
struct BookData;
struct SheetEntry;
struct XmlElement;

/// Writes a workbook: an empty one, or the one that was loaded, with the book's changes.
class BookWriter
{
public:
    /// `source` is null for a new workbook.
    BookWriter(BookData &book, const XlsxSource *source);

    bool save(const QString &path);
    const QString &error() const { return m_styles.error().isEmpty() ? m_package.error() : m_styles.error(); }

private:
    struct AddedSheet
    {
        QString name;
        QByteArray relationId;
    };

    bool readKind();
    bool beginStyles();
    bool finishStyles();
    bool writeSheets();
    bool writeTexts(const SharedTextsEdit &texts);
    bool countTexts(quint32 *count);
    bool hasSheet(std::string_view name) const;
    QString sheetPart(const SheetEntry &entry, bool isFirst);
    void dropCalculationChain();
    bool writeWorkbook();
    QByteArray sheetEntries(const XmlOutline &workbook, const XmlElement *sheets) const;
    void warn(int count, const char *text);
    QString beside(const char *name) const;
    QByteArray relationType(const char *kind) const { return m_relationTypes + kind; }

    BookData &m_book;
    const XlsxSource *m_source;
    Package m_package;
    StylesWriter m_styles;
    QString m_workbookPart, m_textsPart;
    QByteArray m_relationTypes; // what the types of relations begin with
    bool m_hasFormulas = false;
    RelationshipsEdit *m_relations = nullptr; // of the workbook
    std::vector<AddedSheet> m_added;
};

} // namespace spreadsheet
