#pragma once

#include "spreadsheet/cellstyle.h"

namespace spreadsheet {

/// A font of a book, to be given to a format.
class Font
{
public:
    explicit Font(const FontStyle &style)
        : m_style(style)
    {
    }

    /// `index` of the standard palette, such as 8 for black, 10 for red, 12 for blue.
    void setColor(int index);
    void setBold(bool on) { m_style.bold = on; }
    const FontStyle &style() const { return m_style; }

private:
    FontStyle m_style;
};

} // namespace spreadsheet
