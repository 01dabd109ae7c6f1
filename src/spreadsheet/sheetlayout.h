#pragma once

#include "spreadsheet/cellreference.h"

#include <QByteArray>
#include <QString>
#include <vector>

namespace spreadsheet {

/// Neighbouring columns with the same properties, both ends included.
struct ColumnRecord
{
    int first = 0, last = 0;
    double width = -1; ///< characters; below 0 for the default
    bool hidden = false;
    bool hasFormat = false;
    quint32 format = 0;
    QByteArray otherAttributes; ///< in the file's own form, kept for writing
};

/// A link of a range of cells.
struct Hyperlink
{
    CellRange range;
    QString target;    ///< an address, a path, or a place in the workbook; for new links behind "#"
    QByteArray stored; ///< in the file's own form; empty for links made here
};

/// What a sheet has beside its cells.
struct SheetLayout
{
    std::vector<ColumnRecord> columns; ///< by column, without overlaps
    std::vector<CellRange> merges;
    std::vector<Hyperlink> hyperlinks;
    double defaultWidth = -1;     ///< characters; below 0 when not stated
    double defaultHeight = -1;    ///< points; below 0 when not stated
    bool otherRowsHidden = false; ///< rows that have neither cells nor anything of their own are hidden

    int storedLastRow = -1; ///< the last used row that the file has; below 0 for none
    int storedTextUses = 0; ///< cells that refer to the texts which the file's sheets share

    // Parts of the file that the sheet's new form must replace
    bool columnsChanged = false, mergesChanged = false, hyperlinksChanged = false;

    /// Null where the column has nothing of its own.
    const ColumnRecord *column(int column) const;
    /// Gives a column a width and hidden state, and splits what it was part of.
    void setColumn(int column, double width, bool hidden);
};

} // namespace spreadsheet
