#pragma once

#include <QString>
#include <QStringList>

/// What can be done with the items of a list in a cell.
namespace ListOperations {

/// The operations in the order of the option.
enum Operation {
    Average,
    Count,
    CountDistinct,
    Dedupe,
    First,
    Last,
    Maximum,
    Median,
    Minimum,
    Product,
    RemoveEmpty,
    RemoveEven,
    RemoveFirst,
    RemoveLast,
    RemoveOdd,
    ReverseItems,
    ReverseOrder,
    SortAscending,
    SortDescending,
    Sum,
    Tidy,
    Trim
};

QStringList names();
/// True for those whose result is a list again.
bool givesList(Operation operation);
/// The list that one of those gives.
QStringList list(Operation operation, QStringList items);
/// The text that one of the others gives; empty when a number is asked of a list without numbers.
QString value(Operation operation, const QStringList &items);

} // namespace ListOperations
