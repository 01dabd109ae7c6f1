#pragma once

#include <QList>
#include <QStringList>
#include <vector>

/// Finds the columns of text whose columns stand at fixed positions: where a group of lines is blank all along, columns
/// are parted, and what most groups agree on is taken. However long a text is, no more than its first lines are needed.
class FixedWidthGuess
{
public:
    /// Takes the next line, in WTF-8.
    void addLine(const char *begin, const char *end);
    /// True when further lines can't change the result.
    bool hasEnough() const;
    /// The width of each column in UTF-16 units; none when all lines are blank. Throws std::bad_alloc when there are
    /// more columns than a table can have.
    QList<int> widths() const;

private:
    struct Line
    {
        std::vector<quint64> inked; // bit i: position i is neither a space, a tab nor behind the end
        int length = 0;
    };
    using Starts = std::vector<int>;

    size_t linesThatCount() const;
    Starts startsOfGroup(size_t first, size_t count) const;

    std::vector<Line> m_lines; // those that aren't blank
    int m_lineCount = 0;       // all of them
};

/// The widths of the columns of these lines, as FixedWidthGuess finds them.
QList<int> guessFixedWidths(const QStringList &lines);
