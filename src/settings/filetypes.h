#pragma once

#include <QList>
#include <QString>

/// The kinds of file that are read and written. The numbers are stored in documents and in the tables of extensions.
namespace FileType {

enum {
    Delimited = 0,
    ExcelXlsx = 1,
    ExcelXls = 2,
    FixedWidth = 3,
    Json = 4,
    Xml = 5,
    VCard = 6,
    Yaml = 7,
    Html = 8,
    Markdown = 9,
    PlainText = 10,
    None = 11
};

/// The name that people see, which is also part of the keys of saved option defaults; empty for None.
QString label(int type);
/// The extension proposed for a type, such as "csv"; empty for None.
QString defaultExtension(int type);
/// The line that lists of types show.
QString description(int type);
/// True for the kinds of workbook.
inline bool isExcel(int type)
{
    return type == ExcelXlsx || type == ExcelXls;
}
/// The types that can be written, in the order of lists.
const QList<int> &outputTypes();
/// The types that can be read, in the order of lists.
const QList<int> &inputTypes();

} // namespace FileType
