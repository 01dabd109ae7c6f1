#pragma once

#include "data/cellcolumn.h"
#include "inputs/exceldates.h"
#include "inputs/shortestreal.h"
#include "text/cappedlist.h"

#include <functional>
#include <vector>

class Dataset;

namespace spreadsheet {
struct CellRecord;
}

/// What an input wants of a sheet.
struct ExcelReadOptions
{
    bool trim = true;
    bool simplify = true;
    bool ignoreEmptyRows = true;
    int ignoredRows = 0; ///< at the start, empty and hidden ones included
    bool ignoreHiddenColumns = false;
    bool ignoreHiddenRows = false;
};

/// Turns the cells of a sheet's used area into columns of text. One object reads once.
class ExcelCells
{
public:
    /// `byteLimit` is what cells and the texts of links may take at most.
    ExcelCells(const spreadsheet::Book &book, const spreadsheet::Sheet &sheet, const ExcelReadOptions &options,
        qint64 byteLimit);

    /// Fills an empty table, which stays empty when there is nothing to read. Throws std::bad_alloc for more than the
    /// limit. `progress`, which may be null, is told the share done now and then.
    void read(const std::function<void(double)> &progress, Dataset *dataset);

    /// Cells such as "B7" whose numbers have a date format but are no dates, by rows; they are empty in the table.
    /// Those of hidden rows and columns that are to be ignored don't count.
    const CappedList &unknownDates() const { return m_unknownDates; }

private:
    void readRows(const std::function<void(double)> &progress);
    void appendLinks();
    void appendLink(int column, int firstRow, int lastRow, const QByteArray &suffix);
    Cell *cells(int column);
    Cell cell(int row, const spreadsheet::CellRecord &record, ExcelDates::Precision precision);
    bool isDateNumber(const spreadsheet::CellRecord &record);
    Cell numberCell(double value);
    Cell dateCell(int row, const spreadsheet::CellRecord &record, ExcelDates::Precision precision);
    void noteUnknownDate(int row, int column);
    Cell textCell(quint32 id);
    Cell cleanText(std::string_view text);
    void takeRoom(qint64 bytes);

    static constexpr int progressCells = 5000;

    const spreadsheet::Book &m_book;
    const spreadsheet::Sheet &m_sheet;
    const ExcelReadOptions m_options;
    const int m_rowCount;
    const int m_columnCount;
    qint64 m_room; // bytes that are still allowed
    const ShortestRealWriter m_numbers;
    const Cell m_true;
    const Cell m_false;
    TextArenaPointer m_arena;
    std::vector<CellColumn> m_columns;
    std::vector<Cell *> m_cells;    // of the columns that have any, otherwise null
    std::vector<Cell> m_cellOfText; // by the text's number
    std::vector<char> m_buffer;     // for one text
    quint32 m_lastFormat = 0xFFFFFFFF;
    bool m_lastFormatIsDate = false;
    CappedList m_unknownDates;
};
