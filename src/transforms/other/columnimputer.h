#pragma once

#include "data/cellcolumn.h"

#include <QString>
#include <QVector>
#include <vector>

/// Works out what stands for the missing values of one column, from lists of rows that have a value.
class ColumnImputer
{
public:
    enum Using { Average, Median, Mode };

    /// A value for empty cells: a text of its own or that of a row.
    struct Value
    {
        bool isKnown = false;
        QString text;
        int sourceRow = -1;
        int times = 0;         ///< how often a mode occurs
        QVector<int> tiedRows; ///< a row of each text that occurs as often as the mode, which is the first
    };

    ColumnImputer(const CellColumn &column, Using what);

    /// Unknown when the rows, whose cells aren't empty, have nothing to work with.
    Value value(const int *begin, const int *end);

private:
    Value mode(const int *begin, const int *end);

    const Using m_using;
    std::vector<double> m_numbers; ///< of each row, NaN for a text that is no number
    std::vector<double> m_list;
    std::vector<int> m_texts; ///< the number of each row's text
    std::vector<int> m_counts;
};
