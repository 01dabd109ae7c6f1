#pragma once

#include "spreadsheet/xls/xlsstyles.h"

#include <QString>
#include <vector>

namespace spreadsheet {

class RecordReader;
struct BookData;
struct XlsSource;

/// Reads the first part of a workbook stream, which tells of the workbook as a whole, and finds its sheets.
class GlobalsReader
{
public:
    /// `source` has the stream and gets the rest; `book` is empty.
    GlobalsReader(XlsSource &source, BookData &book)
        : m_source(source)
        , m_book(book)
    {
    }

    /// False with a text in error().
    bool read();
    const QString &error() const { return m_error; }

private:
    RecordReader streamReader() const;
    bool readVersion();
    bool decrypt();
    bool findCodePage();
    bool readRecords(RecordReader &records);
    bool readRecord(RecordReader &records);
    bool addSheet(const Record &record);
    bool findSheets();
    bool hasDialogMark(quint32 offset) const;
    bool fail(const QString &error);

    XlsSource &m_source;
    BookData &m_book;
    XlsStyles m_styles;
    QString m_error;
};

} // namespace spreadsheet
