#include "spreadsheet/xlsx/write/bookwriter.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xlsx/relationships.h"
#include "spreadsheet/xlsx/write/emptybook.h"
#include "spreadsheet/xlsx/write/schemaorder.h"
#include "spreadsheet/xlsx/write/sharedtextsedit.h"
#include "spreadsheet/xlsx/write/sheetwriter.h"
#include "spreadsheet/xlsx/write/startedit.h"
#include "spreadsheet/xlsx/write/textescape.h"

#include <algorithm>

namespace spreadsheet {
namespace {

constexpr char usualRelationTypes[] = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr char strictRelationTypes[] = "http://purl.oclc.org/ooxml/officeDocument/relationships";

bool isWritten(const SheetEntry &entry)
{
    return entry.sheet && (entry.source < 0 || entry.sheet->isChanged());
}

} // namespace

BookWriter::BookWriter(BookData &book, const XlsxSource *source)
    : m_book(book)
    , m_source(source)
    , m_package(source ? source->archive.get() : nullptr)
    , m_styles(book)
    , m_workbookPart(source ? source->workbookPart : QStringLiteral("xl/workbook.xml"))
    , m_textsPart(source ? source->textsPart : QString())
{
}

/// The name of a new part in the workbook's folder.
QString BookWriter::beside(const char *name) const
{
    return m_workbookPart.left(m_workbookPart.lastIndexOf(QLatin1Char('/')) + 1) + QLatin1String(name);
}

bool BookWriter::save(const QString &path)
{
    m_book.warnings.clear();
    const bool hasChanges = std::any_of(m_book.sheets.begin(), m_book.sheets.end(), isWritten);
    bool areFormulasStale = false;
    if (hasChanges
        && !(readKind() && writeStyles() && writeSheets(&areFormulasStale) && dropCalculationChain()
             && writeWorkbook(areFormulasStale))) {
        return false;
    }
    return m_package.write(path);
}

/// Files that follow the standard to the letter name the same relations in another way.
bool BookWriter::readKind()
{
    XmlOutline outline(0);
    m_relations = m_package.relationships(m_workbookPart);
    if (!m_relations || !m_package.outline(m_workbookPart, &outline)) {
        return false;
    }
    for (const XmlElement::Attribute &attribute : outline.root().attributes) {
        m_isStrict = m_isStrict || attribute.value.startsWith("http://purl.oclc.org/ooxml/spreadsheetml");
    }
    m_relationTypes = m_isStrict ? strictRelationTypes : usualRelationTypes;
    return true;
}

bool BookWriter::writeStyles()
{
    QString part = m_source ? m_source->stylesPart : QStringLiteral("xl/styles.xml");
    if (m_source && m_book.formats.size() <= m_book.loadedFormats) {
        return true;
    }
    if (part.isEmpty()) {
        part = m_package.freeName(beside("styles%1.xml"));
        m_package.begin(part, stylesContentType, emptyStyles());
        m_relations->addPart(relationType("/styles"), part);
    }
    return m_styles.write(m_package, part);
}

bool BookWriter::countTexts(quint32 *count)
{
    *count = m_source ? m_source->loadedTexts : 0;
    if (m_textsPart.isEmpty() || m_source->textsLoaded) {
        return true;
    }
    XmlOutline outline(0);
    const bool read = m_package.outline(m_textsPart, &outline);
    *count = static_cast<quint32>(outline.rootChildCount());
    return read;
}

/// The part that a sheet is to stand in; a new one for a sheet that was added.
QString BookWriter::sheetPart(const SheetEntry &entry, bool isFirst)
{
    if (entry.source >= 0) {
        return m_source->sheets[static_cast<size_t>(entry.source)].part;
    }
    const QString part = m_package.freeName(beside("worksheets/sheet%1.xml"));
    m_package.begin(part, sheetContentType, emptySheet(isFirst && !m_source));
    m_added.push_back({entry.name, m_relations->addPart(relationType("/worksheet"), part)});
    return part;
}

bool BookWriter::writeSheets(bool *areFormulasStale)
{
    quint32 presentTexts = 0;
    if (!countTexts(&presentTexts)) {
        return false;
    }
    SharedTextsEdit texts(m_book.texts, m_source, presentTexts);
    FormulaWriter formulas(
        [this](std::string_view name) {
            const QString wanted = QString::fromUtf8(name.data(), static_cast<int>(name.size()));
            return std::any_of(m_book.sheets.begin(), m_book.sheets.end(),
                [&wanted](const SheetEntry &entry) { return entry.name.compare(wanted, Qt::CaseInsensitive) == 0; });
        },
        m_source != nullptr);
    CellContext cells{m_book, texts, m_styles, formulas};
    SheetWriter sheets(m_package, cells, relationType("/hyperlink"));
    for (const SheetEntry &entry : m_book.sheets) {
        if (isWritten(entry) && !sheets.write(sheetPart(entry, &entry == &m_book.sheets.front()), *entry.sheet)) {
            return false;
        }
    }
    *areFormulasStale = cells.hasFormulas;
    m_book.warnings << sheets.warnings();
    if (cells.badFormulas > 0) {
        m_book.warnings
            << QStringLiteral("%1 formula(s) written as text, since they are not well-formed").arg(cells.badFormulas);
    }
    if (const int count = texts.overlongCount(); count > 0) {
        m_book.warnings
            << QStringLiteral("%1 text(s) are longer than the 32767 characters that a cell can show").arg(count);
    }
    if (!texts.hasAdded()) {
        return true;
    }
    if (m_textsPart.isEmpty()) {
        const QString usual = beside("sharedStrings.xml");
        m_textsPart = m_package.contains(usual) ? m_package.freeName(beside("sharedStrings%1.xml")) : usual;
        m_package.begin(m_textsPart, textsContentType, emptyTexts());
        m_relations->addPart(relationType("/sharedStrings"), m_textsPart);
    }
    return texts.write(m_package, m_textsPart);
}

/// The order of calculation names cells that may not be formulas any more; programs make it anew.
bool BookWriter::dropCalculationChain()
{
    if (const RelationshipsEdit::Entry *chain = m_relations->find("/calcChain")) {
        const QByteArray id = chain->id;
        m_package.remove(m_relations->targetPart(*chain));
        m_relations->remove(id);
    }
    return true;
}

/// Enters new sheets, and has formulas worked out anew when the file is opened: their results may rest on other cells.
bool BookWriter::writeWorkbook(bool areFormulasStale)
{
    XmlOutline outline(2);
    if (!m_package.outline(m_workbookPart, &outline)) {
        return false;
    }
    PartEdit edit;
    stateEncoding(outline, &edit);
    const XmlElement *sheets = outline.child("sheets");
    const QByteArray prefix = outline.root().prefix();
    if (!m_added.empty()) {
        const QByteArray declared = outline.root().prefixOf("/relationships");
        int lastId = 0;
        for (const XmlElement *sheet :
            sheets ? outline.children(outline.indexOf(sheets)) : std::vector<const XmlElement *>()) {
            lastId = std::max(lastId, std::min(sheet->attribute("sheetId").toInt(), 1000000));
        }
        QByteArray entries;
        for (const AddedSheet &sheet : m_added) {
            entries += '<' + prefix + "sheet name=\"" + cellText(sheet.name) + "\" sheetId=\""
                       + QByteArray::number(++lastId) + '"'
                       + (declared.isEmpty() ? " xmlns:r=\"" + m_relationTypes + '"' : QByteArray()) + ' '
                       + (declared.isEmpty() ? QByteArray("r:") : declared) + "id=\"" + sheet.relationId + "\"/>";
        }
        if (sheets) {
            appendContent(*sheets, entries, -1, &edit);
        } else {
            const QByteArray name = prefix + "sheets";
            SchemaOrder::ofWorkbook().put(outline, "sheets", '<' + name + '>' + entries + "</" + name + '>', &edit);
        }
    }
    if (const XmlElement *calculation = outline.child("calcPr")) {
        if (calculation->attribute("fullCalcOnLoad") != "1") {
            StartEdit(*calculation).set("fullCalcOnLoad", "1").apply(&edit);
        }
    } else if (areFormulasStale) {
        SchemaOrder::ofWorkbook().put(outline, "calcPr", '<' + prefix + "calcPr fullCalcOnLoad=\"1\"/>", &edit);
    }
    return edit.isEmpty() || m_package.change(m_workbookPart, std::move(edit));
}

} // namespace spreadsheet
