#pragma once

#include "spreadsheet/sheet.h"
#include "spreadsheet/xls/recordwriter.h"
#include "spreadsheet/xls/savecontext.h"
#include "spreadsheet/xls/xlssource.h"

namespace spreadsheet {

/// Writes a sheet that is in no file yet; `isFirst` shows it when the workbook is opened.
void writeNewSheet(SaveContext &context, const Sheet &sheet, bool isFirst, RecordWriter &out);

/// Writes a sheet of the loaded file anew: its cells, and of its layout what was changed. All else stays as it is in
/// the file.
void writeChangedSheet(SaveContext &context, const Sheet &sheet, const XlsSource::SheetPart &part, RecordWriter &out);

/// Copies a sheet of the loaded file that is as it was, to be written `shift` bytes behind where it stands there.
void copySheet(const XlsSource &source, const XlsSource::SheetPart &part, qint64 shift, RecordWriter &out);

} // namespace spreadsheet
