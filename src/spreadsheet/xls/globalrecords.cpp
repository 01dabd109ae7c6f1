#include "spreadsheet/xls/globalrecords.h"

#include "spreadsheet/xls/recordreader.h"
#include "spreadsheet/xls/substreams.h"
#include "spreadsheet/xls/xlssource.h"

namespace spreadsheet {

GlobalRecords globalRecords(const XlsSource &source)
{
    GlobalRecords found;
    RecordReader records(reinterpret_cast<const uchar *>(source.workbook.constData()), source.globalsEnd);
    while (records.next()) {
        Record record = records.record();
        if (record.id == RecordId::Bof && !found.empty()) {
            skipSubstream(records);
            record.size = static_cast<quint32>(records.record().end() - record.data);
        }
        found.push_back(record);
    }
    return found;
}

} // namespace spreadsheet
