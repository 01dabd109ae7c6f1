#pragma once

#include "data/cell.h"
#include "text/cappedlist.h"

/// Counts the cells that were to be numbers and aren't, and tells of the first few.
class NumberFailures
{
public:
    explicit NumberFailures(int shown)
        : m_failures(shown)
    {
    }

    void add(const Cell &cell, int row)
    {
        m_failures.add([&] {
            return QStringLiteral("'%1' is not a numerical value in row %2").arg(cell.text(), QString::number(row + 1));
        });
    }
    void add(const Cell &cell, const QString &column, int row)
    {
        m_failures.add([&] {
            return QStringLiteral("'%1' is not a numerical value in column '%2' row %3")
                .arg(cell.text(), column, QString::number(row + 1));
        });
    }
    QStringList lines() const { return m_failures.lines(); }

private:
    CappedList m_failures;
};
