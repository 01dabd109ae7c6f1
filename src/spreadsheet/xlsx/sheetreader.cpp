#include "spreadsheet/xlsx/sheetreader.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xlsx/plaincell.h"
#include "spreadsheet/xlsx/sharedtextsreader.h"
#include "spreadsheet/xlsx/sheetcells.h"
#include "spreadsheet/xlsx/sheetextras.h"
#include "spreadsheet/xlsx/xlsxsource.h"
#include "spreadsheet/xlsx/xmlparser.h"

namespace spreadsheet {
namespace {

/// Tells elements of a sheet part apart by where they stand, and hands each to whom it concerns.
class SheetHandler final : public XmlHandler
{
public:
    SheetHandler(const XlsxSource &source, BookData &book, Sheet &sheet, bool seeksCell)
        : m_cells(source, book, &sheet.cells())
        , m_extras(&sheet.layout())
        , m_layout(sheet.layout())
        , m_seeksCell(seeksCell)
    {
    }

    bool startElement(std::string_view name, const XmlAttributes &attributes) override
    {
        switch (m_place) {
        case Row:
            return name == "c" && enter(Cell, m_cells.beginCell(attributes));
        case Cell:
            return startInCell(name, attributes);
        case Inline:
            m_cells.inlineText().start(name, attributes);
            return true;
        case Rows:
            return name == "row" && enter(Row, m_cells.beginRow(attributes));
        case Columns:
            if (name == "col") {
                m_extras.takeColumns(attributes);
            }
            return false;
        case Merges:
            if (name == "mergeCell") {
                m_extras.takeMerge(attributes);
            }
            return false;
        case Links:
            if (name == "hyperlink" && !m_extras.takeHyperlink(attributes)) {
                fail(QStringLiteral("The sheet has too many hyperlinks"));
            }
            return false;
        case Root:
            return startInRoot(name, attributes);
        case Outside:
            return enter(Root, name == "worksheet") || fail(QStringLiteral("The sheet is not a worksheet"));
        default:
            return false;
        }
    }

    void endElement(std::string_view name) override
    {
        switch (m_place) {
        case Value:
            m_place = Cell;
            break;
        case Formula:
            m_cells.endFormula();
            m_place = Cell;
            break;
        case Inline:
            m_place = m_cells.inlineText().end(name) ? Inline : Cell;
            break;
        case Cell:
            endCell();
            m_place = Row;
            break;
        case Row:
            m_place = Rows;
            break;
        default:
            m_place = Root;
        }
    }

    void text(std::string_view piece) override
    {
        bool isTaken = true;
        if (m_place == Value) {
            isTaken = m_cells.appendValue(piece);
        } else if (m_place == Formula) {
            isTaken = m_cells.appendFormula(piece);
        } else if (m_place == Inline && !m_cells.inlineText().append(piece)) {
            fail(RichText::tooLong());
        }
        if (!isTaken) {
            fail(m_cells.error());
        }
    }

    const char *takeElements(const char *from, const char *end) override
    {
        while (m_place == Row && !m_seeksCell && error().isEmpty()) {
            PlainCell cell;
            const char *behind = readPlainCell(from, end, &cell);
            if (!behind) {
                break;
            }
            if (!m_cells.addCell(cell)) {
                fail(m_cells.error());
            }
            from = behind;
        }
        return from;
    }
    const char *nextElements(const char *from, const char *end) override
    {
        return m_place >= Rows && m_place <= Inline ? findCellStart(from, end) : end;
    }

    bool finishExtras(XlsxSource &source, const QString &part, QString *error)
    {
        return m_extras.finish(source, part, error);
    }
    bool foundCell() const { return m_foundCell; }
    int textUses() const { return m_cells.textUses(); }

private:
    enum Place { Outside, Root, Columns, Rows, Row, Cell, Value, Formula, Inline, Merges, Links };

    bool enter(Place place, bool isTaken)
    {
        if (!isTaken) {
            return m_cells.error().isEmpty() ? false : fail(m_cells.error());
        }
        m_place = place;
        return true;
    }

    bool startInRoot(std::string_view name, const XmlAttributes &attributes)
    {
        if (name == "sheetData") {
            return enter(Rows, true);
        }
        if (name == "sheetFormatPr") {
            m_extras.takeDefaults(attributes);
            if (m_layout.otherRowsHidden) {
                m_cells.keepAllRows();
            }
            return false;
        }
        return (name == "cols" && enter(Columns, true)) || (name == "mergeCells" && enter(Merges, true))
               || (name == "hyperlinks" && enter(Links, true));
    }

    bool startInCell(std::string_view name, const XmlAttributes &attributes)
    {
        if (name == "v") {
            m_cells.beginValue();
            return enter(Value, true);
        }
        if (name == "f") {
            m_cells.beginFormula(attributes);
            return enter(Formula, true);
        }
        if (name == "is") {
            m_cells.beginInline();
            return enter(Inline, true);
        }
        return false;
    }

    void endCell()
    {
        if (!m_seeksCell) {
            if (!m_cells.endCell()) {
                fail(m_cells.error());
            }
        } else if (m_cells.isCellUsed()) {
            m_foundCell = true;
            finish();
        }
    }

    SheetCells m_cells;
    SheetExtras m_extras;
    const SheetLayout &m_layout;
    bool m_seeksCell;
    bool m_foundCell = false;
    Place m_place = Outside;
};

bool parseSheet(XlsxSource &source, int index, SheetHandler *handler, QString *error)
{
    const QString &part = source.sheets[static_cast<size_t>(index)].part;
    if (part.isEmpty()) {
        *error = QStringLiteral("The file has no part for the sheet");
        return false;
    }
    return parsePart(*source.archive, part, handler, error);
}

} // namespace

bool readSheetPart(XlsxSource &source, int index, BookData &book, Sheet &sheet, QString *error)
{
    if (!loadSharedTexts(source, book, error)) {
        return false;
    }
    SheetHandler handler(source, book, sheet, false);
    const bool isRead = parseSheet(source, index, &handler, error);
    sheet.layout().storedLastRow = sheet.lastRow() - 1;
    sheet.layout().storedTextUses = handler.textUses();
    return isRead && handler.finishExtras(source, source.sheets[static_cast<size_t>(index)].part, error);
}

bool hasUsedCell(XlsxSource &source, int index, BookData &book, bool *found, QString *error)
{
    Sheet scratch(&book, QString());
    SheetHandler handler(source, book, scratch, true);
    const bool isRead = parseSheet(source, index, &handler, error);
    *found = handler.foundCell();
    return isRead;
}

} // namespace spreadsheet
