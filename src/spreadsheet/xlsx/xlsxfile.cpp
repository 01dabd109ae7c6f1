#include "spreadsheet/xlsx/xlsxfile.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xlsx/xlsxsource.h"

namespace spreadsheet {

XlsxFile::XlsxFile() = default;
XlsxFile::~XlsxFile() = default;

bool XlsxFile::load(const QString &, BookData &)
{
    return fail(QStringLiteral("Not readable"));
}

bool XlsxFile::readSheet(int, BookData &, Sheet &)
{
    return fail(QStringLiteral("Not readable"));
}

bool XlsxFile::hasCells(int, BookData &)
{
    return fail(QStringLiteral("Not readable"));
}

} // namespace spreadsheet
