#pragma once

#include "spreadsheet/cellgrid.h"
#include "spreadsheet/sheetlayout.h"
#include "spreadsheet/xls/recordwriter.h"
#include "spreadsheet/xls/stylewriter.h"

namespace spreadsheet {

/// Writes ROW and COLINFO records of a sheet.
class RowWriter
{
public:
    RowWriter(StyleWriter &styles, const SheetLayout &layout);

    void write(int number, const GridRow &row, RecordWriter &out);

private:
    /// As the record has them.
    struct Attributes
    {
        quint16 height = 0;
        quint16 unused[2] = {0, 0};
        quint32 options = 0;
    };
    static Attributes storedAttributes(const GridRow &row);
    void setHeight(const GridRow &row, Attributes *attributes) const;
    unsigned heightOfFonts(const GridRow &row) const;

    StyleWriter &m_styles;
    unsigned m_usualHeight; // twips
};

/// The columns of a sheet, COLINFO by COLINFO.
void writeColumns(const SheetLayout &layout, StyleWriter &styles, RecordWriter &out);

} // namespace spreadsheet
