#include "spreadsheet/xlsx/xlsxeditbook.h"

#define DECLARATION "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
#define MAIN "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\""
#define RELATION_TYPE "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
#define PACKAGE "http://schemas.openxmlformats.org/package/2006"
#define TYPE "application/vnd.openxmlformats-officedocument."

namespace {

QByteArray relations(const std::vector<std::array<QByteArray, 3>> &list)
{
    QByteArray xml = DECLARATION "<Relationships xmlns=\"" PACKAGE "/relationships\">";
    for (const auto &[id, kind, target] : list) {
        xml += "<Relationship Id=\"" + id + "\" Type=\"" RELATION_TYPE "/" + kind + "\" Target=\"" + target
               + (target.contains("://") ? "\" TargetMode=\"External\"/>" : "\"/>");
    }
    return xml + "</Relationships>";
}

QByteArray types()
{
    QByteArray xml = DECLARATION
        "<Types xmlns=\"" PACKAGE "/content-types\">"
        "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
        "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
        "<Default Extension=\"vml\" ContentType=\"" TYPE "vmlDrawing\"/>"
        "<Default Extension=\"png\" ContentType=\"image/png\"/>";
    const struct
    {
        const char *part, *type;
    } parts[] = {{"/xl/workbook.xml", "spreadsheetml.sheet.main"},
        {"/xl/worksheets/sheet1.xml", "spreadsheetml.worksheet"},
        {"/xl/worksheets/sheet2.xml", "spreadsheetml.worksheet"},
        {"/xl/chartsheets/sheet1.xml", "spreadsheetml.chartsheet"}, {"/xl/styles.xml", "spreadsheetml.styles"},
        {"/xl/sharedStrings.xml", "spreadsheetml.sharedStrings"}, {"/xl/calcChain.xml", "spreadsheetml.calcChain"},
        {"/xl/tables/table1.xml", "spreadsheetml.table"}, {"/xl/comments1.xml", "spreadsheetml.comments"},
        {"/xl/drawings/drawing1.xml", "drawing"}, {"/xl/charts/chart1.xml", "drawingml.chart"}};
    for (const auto &[part, type] : parts) {
        xml += QByteArray("<Override PartName=\"") + part + "\" ContentType=\"" TYPE + type + "+xml\"/>";
    }
    return xml + "</Types>";
}

const char workbook[] = DECLARATION
    "<workbook " MAIN " xmlns:r=\"" RELATION_TYPE "\"><fileVersion appName=\"xl\"/><workbookPr/>"
    "<bookViews><workbookView activeTab=\"1\"/></bookViews><sheets><sheet name=\"Data\" sheetId=\"3\" r:id=\"rId1\"/>"
    "<sheet name=\"Chart\" sheetId=\"9\" r:id=\"rId3\"/><sheet name=\"Other\" sheetId=\"4\" r:id=\"rId2\"/></sheets>"
    "<definedNames><definedName name=\"_xlnm._FilterDatabase\" localSheetId=\"2\" "
    "hidden=\"1\">Other!$A$1:$B$3</definedName>"
    "<definedName name=\"Total\">Data!$B$2:$B$4</definedName></definedNames><calcPr calcId=\"191029\"/></workbook>";

// Attributes in another order, single quotes and blanks, which have to stay.
const char dataSheet[] = DECLARATION
    "<worksheet " MAIN " xmlns:r=\"" RELATION_TYPE
    "\" xmlns:x14ac='urn:x14ac'><sheetPr  codeName='Data'/><dimension ref=\"A1:D4\"/>"
    "<sheetViews><sheetView tabSelected=\"1\" workbookViewId=\"0\"><pane ySplit=\"1\" topLeftCell=\"A2\" "
    "state=\"frozen\"/>"
    "</sheetView></sheetViews><sheetFormatPr defaultRowHeight=\"15\" x14ac:dyDescent='0.25'/>"
    "<cols><col min=\"1\" max=\"3\" width=\"12.5\" style=\"1\" bestFit=\"1\" customWidth=\"1\"/></cols><sheetData>"
    "<row r=\"1\" spans=\"1:4\" x14ac:dyDescent=\"0.25\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" "
    "t=\"s\"><v>1</v></c></row>"
    "<row r=\"2\" ht=\"30\" customHeight=\"1\"><c r=\"A2\" t=\"s\"><v>2</v></c><c r=\"B2\"><v>1</v></c>"
    "<c r=\"D2\"><f t=\"shared\" ref=\"D2:D4\" si=\"0\">B2*2</f><v>2</v></c></row>"
    "<row r=\"3\"><c r=\"A3\" t=\"s\"><v>3</v></c><c r=\"B3\"><v>2</v></c><c r=\"D3\"><f t=\"shared\" "
    "si=\"0\"/><v>4</v></c></row>"
    "<row r=\"4\" s=\"1\" customFormat=\"1\"><c r=\"A4\" t=\"inlineStr\"><is><t>inline</t></is></c><c r=\"B4\" "
    "s=\"1\"><v>3.5</v></c>"
    "<c r=\"C4\" t=\"e\"><v>#N/A</v></c><c r=\"D4\"><f t=\"shared\" si=\"0\"/><v>7</v></c></row></sheetData>"
    "<conditionalFormatting sqref=\"B2:B4\"><cfRule type=\"cellIs\" dxfId=\"0\" priority=\"1\" "
    "operator=\"greaterThan\">"
    "<formula>2</formula></cfRule></conditionalFormatting>"
    "<dataValidations count=\"1\"><dataValidation type=\"list\" "
    "sqref=\"C2\"><formula1>\"a,b\"</formula1></dataValidation>"
    "</dataValidations><hyperlinks><hyperlink ref=\"A2\" r:id=\"rId1\" tooltip=\"tip\"/>"
    "<hyperlink ref=\"A3\" location=\"Other!A1\" display=\"there\"/></hyperlinks>"
    "<pageMargins left=\"0.7\" right=\"0.7\" top=\"0.75\" bottom=\"0.75\" header=\"0.3\" footer=\"0.3\"/>"
    "<!-- a remark --><drawing r:id=\"rId2\"/><legacyDrawing r:id=\"rId3\"/>"
    "<tableParts count=\"1\"><tablePart r:id=\"rId5\"/></tableParts><extLst><ext uri=\"{1}\"><x:any "
    "xmlns:x=\"urn:x\"/></ext></extLst>"
    "</worksheet>";

const char otherSheet[] = DECLARATION
    "<worksheet " MAIN "><dimension ref=\"A1:B3\"/><sheetData><row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c r=\"B1\" "
    "t=\"s\"><v>1</v></c></row>"
    "<row r=\"2\"><c r=\"A2\"><f>SUM(Total)</f><v>6.5</v></c></row></sheetData><sheetProtection sheet=\"1\"/>"
    "<autoFilter ref=\"A1:B3\"/><mergeCells count=\"1\"><mergeCell ref=\"D1:E2\"/></mergeCells></worksheet>";

const char styles[] = DECLARATION
    "<styleSheet " MAIN "><numFmts count=\"1\"><numFmt numFmtId=\"170\" formatCode=\"0.000\"/></numFmts>"
    "<fonts count=\"2\"><font><sz val=\"11\"/><color theme=\"1\"/><name val=\"Calibri\"/><family val=\"2\"/><scheme "
    "val=\"minor\"/></font>"
    "<font><b/><sz val=\"12\"/><name val=\"Arial\"/></font></fonts>"
    "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill><fill><patternFill "
    "patternType=\"gray125\"/></fill></fills>"
    "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
    "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/></cellStyleXfs>"
    "<cellXfs count=\"2\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\"/>"
    "<xf numFmtId=\"170\" fontId=\"1\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyFont=\"1\"/></cellXfs>"
    "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles>"
    "<dxfs count=\"1\"><dxf><font><b/></font></dxf></dxfs><tableStyles count=\"0\"/><extLst><ext "
    "uri=\"{2}\"/></extLst></styleSheet>";

const char texts[] = DECLARATION
    "<sst " MAIN " count=\"6\" uniqueCount=\"4\"><si><t>Name</t></si><si><t>Qty</t></si>"
    "<si><r><t>rich </t></r><r><rPr><b/></rPr><t>text</t></r></si><si><t>two</t></si></sst>";

const char table[] = DECLARATION
    "<table " MAIN
    " id=\"1\" name=\"Sales\" displayName=\"Sales\" ref=\"A1:B4\" totalsRowShown=\"0\"><autoFilter ref=\"A1:B4\"/>"
    "<tableColumns count=\"2\"><tableColumn id=\"1\" name=\"Name\"/><tableColumn id=\"2\" name=\"Qty\"/></tableColumns>"
    "<tableStyleInfo name=\"TableStyleMedium2\" showRowStripes=\"1\"/></table>";

} // namespace

TestPackage foreignWorkbook()
{
    TestPackage package;
    package.set("[Content_Types].xml", types());
    package.set("_rels/.rels", relations({{{"rId1", "officeDocument", "xl/workbook.xml"}}}));
    package.set("xl/_rels/workbook.xml.rels",
        relations(
            {{{"rId1", "worksheet", "worksheets/sheet1.xml"}}, {{"rId2", "worksheet", "/xl/worksheets/sheet2.xml"}},
                {{"rId3", "chartsheet", "chartsheets/sheet1.xml"}}, {{"rId7", "styles", "styles.xml"}},
                {{"rId8", "sharedStrings", "sharedStrings.xml"}}, {{"rId6", "calcChain", "calcChain.xml"}}}));
    package.set("xl/workbook.xml", workbook);
    package.set(
        "xl/charts/chart1.xml", DECLARATION "<c:chartSpace xmlns:c=\"urn:c\"><c:v>Data!$B$2:$B$4</c:v></c:chartSpace>");
    package.set("xl/worksheets/sheet1.xml", dataSheet);
    package.set("xl/worksheets/sheet2.xml", otherSheet);
    package.set("xl/chartsheets/sheet1.xml", DECLARATION "<chartsheet " MAIN "/>");
    package.set("xl/worksheets/_rels/sheet1.xml.rels",
        relations({{{"rId1", "hyperlink", "http://old.example/?a=1&amp;b=2"}},
            {{"rId2", "drawing", "../drawings/drawing1.xml"}}, {{"rId3", "vmlDrawing", "../drawings/vml1.vml"}},
            {{"rId4", "comments", "../comments1.xml"}}, {{"rId5", "table", "../tables/table1.xml"}}}));
    package.set("xl/drawings/drawing1.xml", DECLARATION "<d:wsDr xmlns:d=\"urn:d\"/>");
    package.set("xl/drawings/_rels/drawing1.xml.rels",
        relations({{{"rId1", "chart", "../charts/chart1.xml"}}, {{"rId2", "image", "../media/image1.png"}}}));
    package.set("xl/drawings/vml1.vml", "<xml xmlns:v=\"urn:v\"><v:shape/></xml>");
    package.set("xl/comments1.xml", DECLARATION "<comments " MAIN "><authors/><commentList/></comments>");
    package.set("xl/media/image1.png", QByteArray("\x89PNG\r\n\x1a\n\0\0\xff", 11) + QByteArray(100, 'a'));
    package.set("xl/tables/table1.xml", table);
    package.set("xl/styles.xml", styles);
    package.set("xl/sharedStrings.xml", texts);
    package.set(
        "xl/calcChain.xml", DECLARATION "<calcChain " MAIN "><c r=\"D2\" i=\"3\"/><c r=\"A2\" i=\"4\"/></calcChain>");
    package.set("docProps/core.xml", DECLARATION "<core/>");
    return package;
}
