#include "spreadsheet/xls/xlsfile.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xls/xlssource.h"

namespace spreadsheet {

XlsFile::XlsFile() = default;
XlsFile::~XlsFile() = default;

bool XlsFile::load(const QString &, BookData &)
{
    return fail(QStringLiteral("Not readable"));
}

bool XlsFile::readSheet(int, BookData &, Sheet &)
{
    return fail(QStringLiteral("Not readable"));
}

bool XlsFile::hasCells(int, BookData &)
{
    return fail(QStringLiteral("Not readable"));
}

bool XlsFile::save(const QString &, BookData &)
{
    return fail(QStringLiteral("Not writable"));
}

} // namespace spreadsheet
