#pragma once

#include "spreadsheet/cellstyle.h"
#include "spreadsheet/xls/recordwriter.h"

#include <array>

namespace spreadsheet {

/// The 56 colours that a workbook can use, by number from 8 on.
class XlsPalette
{
public:
    /// The usual colours. Those that nobody asked for can make room for others.
    XlsPalette();
    /// The colours of a PALETTE record, which stay as they are.
    void load(const Record &record);
    /// Keeps the present colours, since something unknown may use them.
    void freeze() { m_isFrozen = true; }

    /// Number of a colour, or of the one that is most like it when there is no room; `automatic` for one that isn't
    /// set.
    unsigned number(const StyleColor &color, unsigned automatic);
    /// Nothing when the colours are the usual ones or those of the file.
    void write(RecordWriter &out) const;

private:
    static constexpr unsigned first = 8;
    static constexpr int count = 56;

    std::array<QRgb, count> m_colors;
    std::array<bool, count> m_isUsed{};
    bool m_isFrozen = false;
    bool m_isChanged = false;
};

} // namespace spreadsheet
