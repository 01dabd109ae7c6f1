#pragma once

#include <QList>
#include <QString>

/// The file types of inputs and outputs. The numbers stand in documents and settings.
namespace FileType {
enum {
    DelimitedText = 0,
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

/// "Delimited text" and so on; empty for None and numbers outside the table.
QString label(int type);
QString defaultExtension(int type);
QString description(int type);
bool isExcel(int type);
/// The types that can be written, in the order that lists show.
const QList<int> &outputTypes();
/// The types that can be read, in the order of their numbers.
const QList<int> &inputTypes();

} // namespace FileType

/// Where a table comes from or goes to.
namespace Medium {
enum { File = 0, Clipboard = 1, Folder = 2 };
QString label(int medium);
} // namespace Medium
