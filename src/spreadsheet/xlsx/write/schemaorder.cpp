#include "spreadsheet/xlsx/write/schemaorder.h"

#include "spreadsheet/xlsx/write/deflatedpart.h"

namespace spreadsheet {
namespace {

constexpr const char *sheetNames[] = {"sheetPr", "dimension", "sheetViews", "sheetFormatPr", "cols", "sheetData",
    "sheetCalcPr", "sheetProtection", "protectedRanges", "scenarios", "autoFilter", "sortState", "dataConsolidate",
    "customSheetViews", "mergeCells", "phoneticPr", "conditionalFormatting", "dataValidations", "hyperlinks",
    "printOptions", "pageMargins", "pageSetup", "headerFooter", "rowBreaks", "colBreaks", "customProperties",
    "cellWatches", "ignoredErrors", "smartTags", "drawing", "legacyDrawing", "legacyDrawingHF", "drawingHF", "picture",
    "oleObjects", "controls", "webPublishItems", "tableParts", "extLst", nullptr};
constexpr const char *workbookNames[] = {"fileVersion", "fileSharing", "workbookPr", "workbookProtection", "bookViews",
    "sheets", "functionGroups", "externalReferences", "definedNames", "calcPr", "oleSize", "customWorkbookViews",
    "pivotCaches", "smartTagPr", "smartTagTypes", "webPublishing", "fileRecoveryPr", "webPublishObjects", "extLst",
    nullptr};
constexpr const char *styleNames[] = {"numFmts", "fonts", "fills", "borders", "cellStyleXfs", "cellXfs", "cellStyles",
    "dxfs", "tableStyles", "colors", "extLst", nullptr};

} // namespace

int SchemaOrder::rank(const QByteArray &name) const
{
    for (int i = 0; m_names[i]; ++i) {
        if (name == m_names[i]) {
            return i;
        }
    }
    return -1;
}

void SchemaOrder::put(const XmlOutline &outline, const char *name, PartEdit::Writer writer, PartEdit *edit) const
{
    const int own = rank(name);
    qint64 place = outline.root().contentBegin;
    bool isPut = false;
    for (const XmlElement *child : outline.children(0)) {
        if (child->is(name)) {
            // A second one, which mustn't be, would contradict the first.
            edit->replace(child->begin, child->end, isPut ? [](DeflatedPart &) {} : writer);
            isPut = true;
        } else if (rank(child->localName()) < own && rank(child->localName()) >= 0) {
            place = child->end;
        }
    }
    if (!isPut) {
        edit->replace(place, place, std::move(writer));
    }
}

void SchemaOrder::put(const XmlOutline &outline, const char *name, const QByteArray &element, PartEdit *edit) const
{
    put(
        outline, name,
        [element](DeflatedPart &out) {
            out.write({element.constData(), static_cast<size_t>(element.size())});
        },
        edit);
}

const SchemaOrder &SchemaOrder::ofSheet()
{
    static const SchemaOrder order(sheetNames);
    return order;
}

const SchemaOrder &SchemaOrder::ofWorkbook()
{
    static const SchemaOrder order(workbookNames);
    return order;
}

const SchemaOrder &SchemaOrder::ofStyles()
{
    static const SchemaOrder order(styleNames);
    return order;
}

} // namespace spreadsheet
