#pragma once

#include <QString>
#include <QStringList>

/// The operations of Calculate, in the order of its list.
enum class CalculateOp {
    Add,
    Subtract,
    Multiply,
    Divide,
    Power,
    Modulus,
    Abs,
    And,
    AndBitwise,
    Ceiling,
    DateTimeAddDays,
    DateTimeAddHours,
    DateTimeAddMonths,
    DateTimeAddMSecs,
    DateTimeAddSecs,
    DateTimeAddYears,
    DateTimeToMSecs,
    DateTimeToUtc,
    DateToJulianDay,
    DaysInMonth,
    DaysInYear,
    DayOfWeek,
    DayOfMonth,
    DayOfYear,
    Decrement,
    Floor,
    Increment,
    IndexOf,
    JulianDayToDate,
    LastIndexOf,
    Length,
    LevDistance,
    Log10,
    Log2,
    Ln,
    Maximum,
    Minimum,
    Month,
    MSecsToDateTime,
    MSecsToTime,
    Occurrences,
    Or,
    OrBitwise,
    Quarter,
    Round,
    Sign,
    TimeToMSecs,
    WeekOfYear,
    WordCount,
    Xor,
    XorBitwise,
    Year
};

/// How an operation reads its values. Those of Number, Boolean and Date ask first whether the values are dates.
enum class CalculateGroup { Number, Boolean, Date, Text, DateTime, Duration };

/// One operation: its name in the list, how many values it takes and how it reads them.
struct CalculateOperation
{
    CalculateOp op;
    const char *text;
    int values;
    CalculateGroup group;

    /// The name for titles of columns: the sign alone for arithmetic.
    QString shortName() const;
    /// The lower-case word by which it is searched.
    QString keyword() const;

    /// `choice` is a position in the list.
    static const CalculateOperation &at(int choice);
    static QStringList texts();
    static QStringList keywords();
};
