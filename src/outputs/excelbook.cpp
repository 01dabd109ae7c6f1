#include "outputs/excelbook.h"

#include "settings/filetypes.h"

spreadsheet::FileKind ExcelBook::kindOf(int fileType)
{
    return fileType == FileType::ExcelXls ? spreadsheet::FileKind::Xls : spreadsheet::FileKind::Xlsx;
}

int ExcelBook::indexOfSheet(const spreadsheet::Book &book, const QString &name, Qt::CaseSensitivity cs)
{
    for (int i = 0; i < book.sheetCount(); ++i) {
        if (book.getSheetName(i).compare(name, cs) == 0) {
            return i;
        }
    }
    return -1;
}
