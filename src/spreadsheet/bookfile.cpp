#include "spreadsheet/bookfile.h"

#include "spreadsheet/sizes.h"
#include "spreadsheet/xls/xlsfile.h"
#include "spreadsheet/xlsx/xlsxfile.h"

namespace spreadsheet {

std::unique_ptr<BookFile> BookFile::create(FileKind kind)
{
    if (kind == FileKind::Xls) {
        return std::make_unique<XlsFile>();
    }
    return std::make_unique<XlsxFile>();
}

} // namespace spreadsheet
