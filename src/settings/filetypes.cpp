#include "settings/filetypes.h"

#include <iterator>

namespace {

struct TypeRow
{
    const char *label;
    const char *extension;
    const char *description;
};

const TypeRow table[] = {
    {"Delimited text", "csv", "Comma Separated Value (CSV), Tab Separated Value (TSV) etc."},
    {"Excel XLSX", "xlsx", "Excel spreadsheet (Excel 2007 and later)"},
    {"Excel XLS", "xls", "Excel spreadsheet (Excel 2003 and earlier)"},
    {"Fixed width", "txt", "Text file with columns of fixed width"},
    {"JSON", "json", "JavaScript Object Notation"},
    {"XML", "xml", "Extensible Markup Language"},
    {"vCard", "vcf", "Virtual Contact File"},
    {"YAML", "yaml", "Yet Another Markup Language"},
    {"HTML", "html", "Hypertext Markup Language"},
    {"Markdown", "md", "Markdown"},
    {"Plain text", "log", "Plain text, one value per row"},
};

QString text(int type, const char *TypeRow::*field)
{
    const bool known = type >= 0 && type < int(std::size(table));
    return known ? QString::fromLatin1(table[type].*field) : QString();
}

} // namespace

QString FileType::label(int type)
{
    return text(type, &TypeRow::label);
}

QString FileType::defaultExtension(int type)
{
    return text(type, &TypeRow::extension);
}

QString FileType::description(int type)
{
    return text(type, &TypeRow::description);
}

const QList<int> &FileType::outputTypes()
{
    static const QList<int> types{Delimited, ExcelXlsx, ExcelXls, Html, Json, PlainText, Markdown, Xml, VCard, Yaml};
    return types;
}

const QList<int> &FileType::inputTypes()
{
    static const QList<int> types{Delimited, ExcelXlsx, ExcelXls, FixedWidth, Json, PlainText, Xml, VCard};
    return types;
}
