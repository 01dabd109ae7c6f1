#pragma once

#include "data/cell.h"

#include <QLocale>
#include <QStringList>
#include <vector>

struct ExcelFormats;

/// Finds out which columns hold texts that don't come back from a sheet as they were, such as "007", which is the
/// number 7 there. Only columns whose format was chosen by their values are watched.
class TextChanges
{
public:
    TextChanges(const ExcelFormats &formats, int columnCount);

    // To be told of each value that was written as another kind than text. Once a column has changed they do nothing.
    void noteNumber(int column, const Cell &cell, double value)
    {
        if (isWatched(column) && !keepsText(cell, value)) {
            note(column, cell, "number");
        }
    }
    void noteBoolean(int column, const Cell &cell)
    {
        if (isWatched(column) && !isTrueOrFalse(cell)) {
            note(column, cell, "boolean");
        }
    }
    /// A sheet shows a time with its seconds, and its day when it is read.
    void noteTime(int column, const Cell &cell)
    {
        if (isWatched(column)) {
            note(column, cell, "time");
        }
    }

    /// A line that names the columns, each with its first text that changed; empty when none did.
    QString line(const QStringList &columnNames) const;

private:
    struct Column
    {
        bool isWatched = false;
        const char *kind = nullptr; // of the values that its texts became
        QString firstText;
    };

    bool isWatched(int column) const { return m_columns[static_cast<size_t>(column)].isWatched; }
    bool keepsText(const Cell &cell, double value) const;
    static bool isTrueOrFalse(const Cell &cell);
    void note(int column, const Cell &cell, const char *kind);

    const QLocale m_locale;
    const char m_decimalPoint; // 0 when it isn't ASCII
    std::vector<Column> m_columns;
};
