#include "spreadsheet/bookdata.h"
#include "spreadsheet/xlsx/write/bookwriter.h"
#include "spreadsheet/xlsx/xlsxfile.h"
#include "spreadsheet/xlsx/xlsxsource.h"

namespace spreadsheet {

bool XlsxFile::save(const QString &path, BookData &book)
{
    if (book.sheets.empty()) {
        return fail(QStringLiteral("A workbook without sheets can't be saved"));
    }
    BookWriter writer(book, m_source.get());
    return writer.save(path) || fail(writer.error());
}

} // namespace spreadsheet
