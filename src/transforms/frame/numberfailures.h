#pragma once

#include "data/cell.h"
#include "transforms/frame/messages.h"

/// Counts the cells that were to be numbers and aren't, and tells of the first few.
class NumberFailures
{
public:
    /// At most Messages::Examples::shown are told of.
    explicit NumberFailures(int shown)
        : m_shown(shown)
    {
    }

    void add(const Cell &cell, int row)
    {
        if (m_failures.count() < m_shown) {
            m_failures.add(
                QStringLiteral("'%1' is not a numerical value in row %2").arg(cell.text(), QString::number(row + 1)));
        } else {
            m_failures.addHidden();
        }
    }
    void add(const Cell &cell, const QString &column, int row)
    {
        if (m_failures.count() < m_shown) {
            m_failures.add(QStringLiteral("'%1' is not a numerical value in column '%2' row %3")
                               .arg(cell.text(), column, QString::number(row + 1)));
        } else {
            m_failures.addHidden();
        }
    }
    QStringList lines() const { return m_failures.lines("other", "others"); }

private:
    int m_shown;
    Messages::Examples m_failures;
};
