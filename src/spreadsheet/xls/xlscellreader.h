#pragma once

#include "spreadsheet/cellrecord.h"
#include "spreadsheet/xls/record.h"

#include <QString>
#include <string>

namespace spreadsheet {

class RecordReader;
class Sheet;
struct BookData;
struct XlsSource;

/// Reads the records of a sheet that hold cells.
class XlsCellReader
{
public:
    XlsCellReader(const XlsSource &source, BookData &book, Sheet &sheet);

    static bool isCell(RecordId id);
    /// Takes the present record, with those behind it that belong to its cell; ignores one that holds no cell. False
    /// with a text in error() when it can't be right.
    bool read(RecordReader &records);
    const QString &error() const { return m_error; }

private:
    CellRecord &cellOf(const Record &record);
    CellRecord &cellAt(int row, int column, quint32 format);
    bool readSeveral(const Record &record);
    bool readSharedText(const Record &record);
    bool readLabel(RecordReader &records);
    bool readFormula(RecordReader &records);
    static void setResult(const Record &formula, CellRecord &cell);
    static void setNumber(CellRecord &cell, double value);
    static void setBoolOrError(CellRecord &cell, quint8 value, bool isError);
    bool failAt(const Record &record);

    const XlsSource &m_source;
    BookData &m_book;
    Sheet &m_sheet;
    std::string m_text;
    QString m_error;
};

} // namespace spreadsheet
