#pragma once

#include "data/values.h"

#include <QTableWidgetItem>

/// A cell that is sorted by a number, whatever it shows. Without a number it comes before all that have one.
class NumericSortableTableWidgetItem : public QTableWidgetItem
{
public:
    /// A whole number with the locale's grouping.
    explicit NumericSortableTableWidgetItem(qint64 number)
        : NumericSortableTableWidgetItem(formatInteger(number, true), number)
    {
    }
    NumericSortableTableWidgetItem(const QString &text, const QVariant &number)
        : QTableWidgetItem(text)
    {
        setData(Qt::UserRole, number);
        setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }

    bool operator<(const QTableWidgetItem &other) const override
    {
        const QVariant left = data(Qt::UserRole);
        const QVariant right = other.data(Qt::UserRole);
        return left.isValid() && right.isValid() ? left.toDouble() < right.toDouble()
                                                 : !left.isValid() && right.isValid();
    }
};
