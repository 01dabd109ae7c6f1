#pragma once

#include <QStringList>
#include <QVector>

/// A table of a help page. Blanks that a reader would not see stand as "␣", line breaks as "⏎", tabs as "⇥", an empty
/// cell as "&nbsp;", and the characters that Markdown takes for its own behind a backslash.
struct MarkdownTable
{
    QStringList header;
    QVector<QStringList> rows;

    /// From the lines of the table, the one below the header included; cells that a line lacks are empty.
    static MarkdownTable fromLines(const QStringList &lines);
    QStringList toLines() const;
    /// As many columns of the same names and as many rows.
    bool hasShapeOf(const MarkdownTable &other) const;
    /// Those that stand for blanks, line breaks and tabs.
    static QString signs();

    friend bool operator==(const MarkdownTable &a, const MarkdownTable &b)
    {
        return a.header == b.header && a.rows == b.rows;
    }
};
