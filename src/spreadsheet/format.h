#pragma once

#include "spreadsheet/cellstyle.h"
#include "spreadsheet/numberformats.h"

namespace spreadsheet {

class Font;

/// A cell format of a book. Those of a file come first, under the file's own numbers, and stay as they are; those made
/// by Book::addFormat() can be changed until the book is saved.
class Format
{
public:
    Format(quint32 index, const CellStyle &style)
        : m_index(index)
        , m_style(style)
    {
    }

    /// The number that cells of its book hold.
    quint32 index() const { return m_index; }
    void setFont(const Font *font);
    /// A built-in number format: 0 general, 14 date, 21 time, 49 text and others.
    void setNumFormat(int number);
    const CellStyle &style() const { return m_style; }
    NumberMeaning meaning() const;
    /// True when the number format shows numbers as dates or times of day, but not as spans of time.
    bool isDate() const { return meaning() == NumberMeaning::Date; }

private:
    quint32 m_index;
    CellStyle m_style;
    mutable bool m_isMeaningKnown = false;
    mutable NumberMeaning m_meaning = NumberMeaning::Number;
};

} // namespace spreadsheet
