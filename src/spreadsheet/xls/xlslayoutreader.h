#pragma once

#include "spreadsheet/xls/record.h"

#include <vector>

namespace spreadsheet {

class Sheet;
struct XlsSource;

/// Reads the records of a sheet that are not about single cells: rows, columns, merged ranges, links.
class XlsLayoutReader
{
public:
    XlsLayoutReader(const XlsSource &source, quint32 formatCount, Sheet &sheet);

    /// Takes a record of these kinds, and ignores any other.
    void add(const Record &record);
    /// For when all records were taken.
    void finish();

private:
    void addRow(const Record &record);
    void addMerges(const Record &record);
    bool isOwnFormat(quint32 format) const;

    const XlsSource &m_source;
    quint32 m_formatCount;
    Sheet &m_sheet;
    int m_usualHeight = 0;         // twips
    std::vector<Record> m_columns; // COLINFO records
};

} // namespace spreadsheet
