#include "spreadsheet/xls/xlssheetreader.h"

#include "spreadsheet/bookdata.h"
#include "spreadsheet/xls/recordreader.h"
#include "spreadsheet/xls/substreams.h"
#include "spreadsheet/xls/xlscellreader.h"
#include "spreadsheet/xls/xlserrors.h"
#include "spreadsheet/xls/xlslayoutreader.h"

namespace spreadsheet {
namespace {

/// Over the records of a sheet, its BOF and EOF and the charts inside left out.
template<typename Visit>
bool visitRecords(const XlsSource &source, const XlsSource::SheetPart &part, Visit &&visit)
{
    const auto *stream = reinterpret_cast<const uchar *>(source.workbook.constData());
    RecordReader records(stream, part.offset + part.size, part.offset);
    records.next();
    while (records.next()) {
        const RecordId id = records.record().id;
        if (id == RecordId::Bof) {
            skipSubstream(records);
        } else if (id != RecordId::Eof && !visit(records)) {
            return false;
        }
    }
    return true;
}

} // namespace

bool readXlsSheet(
    const XlsSource &source, const XlsSource::SheetPart &part, BookData &book, Sheet &sheet, QString *error)
{
    XlsCellReader cells(source, book, sheet);
    XlsLayoutReader layout(source, book.loadedFormats, sheet);
    const bool isRead = visitRecords(source, part, [&cells, &layout](RecordReader &records) {
        const Record &record = records.record();
        if (XlsCellReader::isCell(record.id)) {
            return cells.read(records);
        }
        layout.add(record);
        return true;
    });
    layout.finish();
    *error = cells.error();
    return isRead;
}

bool hasXlsCells(const XlsSource &source, const XlsSource::SheetPart &part)
{
    return !visitRecords(
        source, part, [](RecordReader &records) { return !XlsCellReader::isCell(records.record().id); });
}

} // namespace spreadsheet
