#include "spreadsheet/xlsx/write/emptybook.h"

namespace spreadsheet {

#define XML_DECLARATION "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
#define MAIN_NAMESPACE "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\""
#define RELATION_TYPES "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
#define PACKAGE_NAMESPACES "http://schemas.openxmlformats.org/package/2006"
#define MAIN_TYPES "application/vnd.openxmlformats-officedocument.spreadsheetml"

const char sheetContentType[] = MAIN_TYPES ".worksheet+xml";
const char textsContentType[] = MAIN_TYPES ".sharedStrings+xml";
const char stylesContentType[] = MAIN_TYPES ".styles+xml";

const std::vector<EmptyBookPart> &emptyBookParts()
{
    static const std::vector<EmptyBookPart> parts = {
        {"[Content_Types].xml", XML_DECLARATION
            "<Types xmlns=\"" PACKAGE_NAMESPACES "/content-types\">"
            "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
            "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
            "<Override PartName=\"/xl/workbook.xml\" ContentType=\"" MAIN_TYPES ".sheet.main+xml\"/>"
            "<Override PartName=\"/xl/styles.xml\" ContentType=\"" MAIN_TYPES ".styles+xml\"/>"
            "<Override PartName=\"/docProps/app.xml\" ContentType=\"application/"
            "vnd.openxmlformats-officedocument.extended-properties+xml\"/>"
            "</Types>"},
        {"_rels/.rels", XML_DECLARATION
            "<Relationships xmlns=\"" PACKAGE_NAMESPACES "/relationships\">"
            "<Relationship Id=\"rId1\" Type=\"" RELATION_TYPES "/officeDocument\" Target=\"xl/workbook.xml\"/>"
            "<Relationship Id=\"rId2\" Type=\"" RELATION_TYPES "/extended-properties\" Target=\"docProps/app.xml\"/>"
            "</Relationships>"},
        {"docProps/app.xml",
            XML_DECLARATION "<Properties xmlns=\"http://schemas.openxmlformats.org/officeDocument/2006/"
                            "extended-properties\"><Application>Quillmere</Application></Properties>"},
        {"xl/workbook.xml", XML_DECLARATION "<workbook " MAIN_NAMESPACE " xmlns:r=\"" RELATION_TYPES "\">"
                                            "<bookViews><workbookView/></bookViews><sheets></sheets></workbook>"},
        {"xl/_rels/workbook.xml.rels",
            XML_DECLARATION "<Relationships xmlns=\"" PACKAGE_NAMESPACES "/relationships\">"
                            "<Relationship Id=\"rId1\" Type=\"" RELATION_TYPES "/styles\" Target=\"styles.xml\"/>"
                            "</Relationships>"},
        {"xl/styles.xml", emptyStyles()},
    };
    return parts;
}

QByteArray emptySheet(bool isShown)
{
    return QByteArray(
               XML_DECLARATION "<worksheet " MAIN_NAMESPACE " xmlns:r=\"" RELATION_TYPES "\"><sheetViews><sheetView ")
           + (isShown ? "tabSelected=\"1\" " : "")
           + "workbookViewId=\"0\"/></sheetViews><sheetFormatPr defaultRowHeight=\"15\"/><sheetData/></worksheet>";
}

QByteArray emptyTexts()
{
    return XML_DECLARATION "<sst " MAIN_NAMESPACE " count=\"0\" uniqueCount=\"0\"></sst>";
}

QByteArray emptyStyles()
{
    return XML_DECLARATION
        "<styleSheet " MAIN_NAMESPACE "><fonts count=\"0\"></fonts><fills count=\"0\"></fills>"
        "<borders count=\"0\"></borders><cellStyleXfs count=\"1\">"
        "<xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/></cellStyleXfs>"
        "<cellXfs count=\"0\"></cellXfs>"
        "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles>"
        "</styleSheet>";
}

} // namespace spreadsheet
