#include "spreadsheet/xlsx/workbookreader.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xlsx/relationships.h"
#include "spreadsheet/xlsx/xlsxsource.h"
#include "spreadsheet/xlsx/xmlparser.h"

namespace spreadsheet {
namespace {

constexpr size_t mostSheets = 65536;
constexpr int chartSheet = 1;
constexpr int otherSheet = 2;

int sheetTypeOf(const QString &kind)
{
    if (kind == QLatin1String("worksheet")) {
        return SheetEntry::worksheet;
    }
    return kind == QLatin1String("chartsheet") ? chartSheet : otherSheet;
}

class WorkbookHandler final : public XmlHandler
{
public:
    WorkbookHandler(const Relationships &relations, XlsxSource &source, BookData &book)
        : m_relations(relations)
        , m_source(source)
        , m_book(book)
    {
    }

    bool startElement(std::string_view name, const XmlAttributes &attributes) override
    {
        if (!m_isRootKnown) {
            m_isRootKnown = true;
            return name == "workbook" || fail(QStringLiteral("The file is not an .xlsx workbook"));
        }
        if (name == "workbookPr") {
            m_book.uses1904 = attributes.flag("date1904", false);
        } else if (name == "sheet") {
            return addSheet(attributes);
        }
        return name == "sheets";
    }

private:
    bool addSheet(const XmlAttributes &attributes)
    {
        if (m_book.sheets.size() >= mostSheets) {
            return fail(QStringLiteral("The workbook has too many sheets"));
        }
        XlsxSource::SheetPart part;
        part.sheetId = attributes.number("sheetId", 0);
        part.relationId = QString::fromUtf8(attributes.findPrefixed("id"));
        SheetEntry entry;
        entry.name = QString::fromUtf8(attributes.find("name"));
        entry.source = static_cast<int>(m_source.sheets.size());
        const Relationships::Relation *relation = m_relations.byId(part.relationId);
        if (relation && !relation->isExternal) {
            part.part = relation->target;
            entry.type = sheetTypeOf(relation->kind);
        }
        m_source.sheets.push_back(std::move(part));
        m_book.sheets.push_back(std::move(entry));
        return true;
    }

    const Relationships &m_relations;
    XlsxSource &m_source;
    BookData &m_book;
    bool m_isRootKnown = false;
};

/// Empty when the relation is missing or leads nowhere.
QString partOfKind(const Relationships &relations, const QString &kind, const ZipArchive &archive)
{
    const Relationships::Relation *relation = relations.byKind(kind);
    return relation && archive.contains(relation->target) ? relation->target : QString();
}

} // namespace

bool readWorkbook(XlsxSource &source, BookData &book, QString *error)
{
    Relationships ofFile;
    if (!ofFile.load(*source.archive, QString(), error)) {
        return false;
    }
    source.workbookPart = partOfKind(ofFile, QStringLiteral("officeDocument"), *source.archive);
    if (source.workbookPart.isEmpty()) {
        *error = QStringLiteral("The file is not an .xlsx workbook");
        return false;
    }
    if (source.workbookPart.endsWith(QLatin1String(".bin"), Qt::CaseInsensitive)) {
        *error = QStringLiteral("The file is a binary workbook (.xlsb), not an .xlsx one");
        return false;
    }
    Relationships relations;
    if (!relations.load(*source.archive, source.workbookPart, error)) {
        return false;
    }
    source.stylesPart = partOfKind(relations, QStringLiteral("styles"), *source.archive);
    source.themePart = partOfKind(relations, QStringLiteral("theme"), *source.archive);
    source.textsPart = partOfKind(relations, QStringLiteral("sharedStrings"), *source.archive);
    WorkbookHandler handler(relations, source, book);
    return parsePart(*source.archive, source.workbookPart, &handler, error);
}

} // namespace spreadsheet
