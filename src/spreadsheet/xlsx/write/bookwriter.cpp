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
#include <set>

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
    if (std::any_of(m_book.sheets.begin(), m_book.sheets.end(), isWritten)) {
        if (!readKind() || !beginStyles() || !writeSheets() || !finishStyles()) {
            return false;
        }
        dropCalculationChain();
        if (!writeWorkbook()) {
            return false;
        }
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
    bool isStrict = false;
    for (const XmlElement::Attribute &attribute : outline.root().attributes) {
        isStrict = isStrict || attribute.value.startsWith("http://purl.oclc.org/ooxml/spreadsheetml");
    }
    m_relationTypes = isStrict ? strictRelationTypes : usualRelationTypes;
    return true;
}

bool BookWriter::beginStyles()
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
    return m_styles.begin(m_package, part);
}

bool BookWriter::finishStyles()
{
    if (m_styles.isFull()) {
        m_book.warnings << QStringLiteral(
            "The workbook has as many cell formats as .xlsx can hold, some cells were written without theirs");
    }
    return m_styles.finish(m_package);
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

bool BookWriter::hasSheet(std::string_view name) const
{
    const QString wanted = QString::fromUtf8(name.data(), static_cast<int>(name.size()));
    return std::any_of(m_book.sheets.begin(), m_book.sheets.end(),
        [&wanted](const SheetEntry &entry) { return entry.name.compare(wanted, Qt::CaseInsensitive) == 0; });
}

bool BookWriter::writeSheets()
{
    quint32 presentTexts = 0;
    if (!countTexts(&presentTexts)) {
        return false;
    }
    SharedTextsEdit texts(m_book.texts, m_source, presentTexts);
    FormulaWriter formulas([this](std::string_view name) { return hasSheet(name); }, m_source != nullptr);
    CellContext cells{m_book, texts, m_styles, formulas};
    SheetWriter sheets(m_package, cells, relationType("/hyperlink"));
    for (const SheetEntry &entry : m_book.sheets) {
        if (isWritten(entry)) {
            texts.dropUses(entry.sheet->layout().storedTextUses);
        }
        if (isWritten(entry) && !sheets.write(sheetPart(entry, &entry == &m_book.sheets.front()), *entry.sheet)) {
            return false;
        }
    }
    m_hasFormulas = cells.hasFormulas;
    m_book.warnings << sheets.warnings();
    warn(cells.badFormulas, "%1 formula(s) written as text, since they are not well-formed");
    warn(texts.overlongCount(), "%1 text(s) are longer than the 32767 characters that a cell can show");
    m_book.warnings.removeDuplicates();
    return !texts.hasAdded() || writeTexts(texts);
}

void BookWriter::warn(int count, const char *text)
{
    if (count > 0) {
        m_book.warnings << QString::fromLatin1(text).arg(count);
    }
}

bool BookWriter::writeTexts(const SharedTextsEdit &texts)
{
    if (m_textsPart.isEmpty()) {
        const QString usual = beside("sharedStrings.xml");
        m_textsPart = m_package.contains(usual) ? m_package.freeName(beside("sharedStrings%1.xml")) : usual;
        m_package.begin(m_textsPart, textsContentType, emptyTexts());
        m_relations->addPart(relationType("/sharedStrings"), m_textsPart);
    }
    return texts.write(m_package, m_textsPart);
}

/// The order of calculation names cells that may not be formulas any more; programs make it anew.
void BookWriter::dropCalculationChain()
{
    if (const RelationshipsEdit::Entry *chain = m_relations->find("/calcChain")) {
        const QByteArray id = chain->id;
        m_package.remove(m_relations->targetPart(*chain));
        m_relations->remove(id);
    }
}

/// The list's entries for the sheets that were added.
QByteArray BookWriter::sheetEntries(const XmlOutline &workbook, const XmlElement *sheets) const
{
    constexpr int greatestId = 65534;
    std::set<int> ids;
    for (const XmlElement *sheet : sheets ? workbook.children(workbook.indexOf(sheets)) : XmlOutline::Elements()) {
        ids.insert(sheet->attribute("sheetId").toInt());
    }
    const QByteArray prefix = workbook.root().prefix();
    const QByteArray declared = workbook.root().prefixOf("/relationships");
    const QByteArray idName = declared.isEmpty() ? " xmlns:r=\"" + m_relationTypes + "\" r:id" : ' ' + declared + "id";
    QByteArray entries;
    for (const AddedSheet &sheet : m_added) {
        int id = ids.empty() ? 1 : std::min(*ids.rbegin(), greatestId) + 1;
        for (; id > greatestId || ids.count(id) > 0; ++id) {
            id = id > greatestId ? 0 : id;
        }
        ids.insert(id);
        entries += '<' + prefix + "sheet name=\"" + cellText(sheet.name) + "\" sheetId=\"" + QByteArray::number(id)
                   + '"' + idName + "=\"" + sheet.relationId + "\"/>";
    }
    return entries;
}

/// Enters new sheets, and has formulas worked out anew when the file is opened: their results may rest on other cells.
bool BookWriter::writeWorkbook()
{
    XmlOutline outline(2);
    if (!m_package.outline(m_workbookPart, &outline)) {
        return false;
    }
    PartEdit edit;
    const QByteArray prefix = outline.root().prefix();
    const SchemaOrder &order = SchemaOrder::ofWorkbook();
    const XmlElement *sheets = outline.child("sheets");
    const QByteArray entries = sheetEntries(outline, sheets);
    if (sheets && !entries.isEmpty()) {
        appendContent(*sheets, entries, -1, &edit);
    } else if (!entries.isEmpty()) {
        const QByteArray name = prefix + "sheets";
        order.put(outline, "sheets", '<' + name + '>' + entries + "</" + name + '>', &edit);
    }
    const XmlElement *calculation = outline.child("calcPr");
    if (calculation && calculation->attribute("fullCalcOnLoad") != "1") {
        StartEdit(*calculation).set("fullCalcOnLoad", "1").apply(&edit);
    } else if (!calculation && m_hasFormulas) {
        order.put(outline, "calcPr", '<' + prefix + "calcPr fullCalcOnLoad=\"1\"/>", &edit);
    }
    if (edit.isEmpty()) {
        return true;
    }
    openPart(outline, &edit);
    return m_package.change(m_workbookPart, std::move(edit));
}

} // namespace spreadsheet
