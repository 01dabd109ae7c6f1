#pragma once

#include "spreadsheet/xls/sharedtextswriter.h"
#include "spreadsheet/xls/sheetreferences.h"
#include "spreadsheet/xls/stylewriter.h"
#include "text/cappedlist.h"

namespace spreadsheet {

struct XlsSource;

/// What the writers of one workbook share.
struct SaveContext
{
    BookData &book;
    const XlsSource *source;     ///< null for a new workbook
    const GlobalRecords globals; ///< of the source
    StyleWriter styles;
    SharedTextsWriter texts;
    SheetReferences sheets;
    CappedList formulaWarnings, textWarnings;
};

} // namespace spreadsheet
