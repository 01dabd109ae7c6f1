#include "spreadsheet/xlsx/xlsxfile.h"
#include "spreadsheet/xlsx/xlsxsource.h"

namespace spreadsheet {

bool XlsxFile::save(const QString &, BookData &)
{
    return fail(QStringLiteral("Not writable"));
}

} // namespace spreadsheet
