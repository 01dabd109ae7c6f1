#include "transforms/column/calculateoperation.h"

static const CalculateOperation operations[] = {
    {CalculateOp::Add, "+ Add", 2, CalculateGroup::Number},
    {CalculateOp::Subtract, "- Subtract", 2, CalculateGroup::Number},
    {CalculateOp::Multiply, "* Multiply", 2, CalculateGroup::Number},
    {CalculateOp::Divide, "/ Divide", 2, CalculateGroup::Number},
    {CalculateOp::Power, "^ Power", 2, CalculateGroup::Number},
    {CalculateOp::Modulus, "% Modulus", 2, CalculateGroup::Number},
    {CalculateOp::Abs, "Abs", 1, CalculateGroup::Number},
    {CalculateOp::And, "And", 2, CalculateGroup::Boolean},
    {CalculateOp::AndBitwise, "AndBitwise", 2, CalculateGroup::Number},
    {CalculateOp::Ceiling, "Ceiling", 1, CalculateGroup::Number},
    {CalculateOp::DateTimeAddDays, "DateTimeAddDays", 2, CalculateGroup::DateTime},
    {CalculateOp::DateTimeAddHours, "DateTimeAddHours", 2, CalculateGroup::DateTime},
    {CalculateOp::DateTimeAddMonths, "DateTimeAddMonths", 2, CalculateGroup::DateTime},
    {CalculateOp::DateTimeAddMSecs, "DateTimeAddMSecs", 2, CalculateGroup::DateTime},
    {CalculateOp::DateTimeAddSecs, "DateTimeAddSecs", 2, CalculateGroup::DateTime},
    {CalculateOp::DateTimeAddYears, "DateTimeAddYears", 2, CalculateGroup::DateTime},
    {CalculateOp::DateTimeToMSecs, "DateTimeToMSecs", 1, CalculateGroup::DateTime},
    {CalculateOp::DateTimeToUtc, "DateTimeToUTC", 1, CalculateGroup::DateTime},
    {CalculateOp::DateToJulianDay, "DateToJulianDay", 1, CalculateGroup::Date},
    {CalculateOp::DaysInMonth, "DaysInMonth", 1, CalculateGroup::Date},
    {CalculateOp::DaysInYear, "DaysInYear", 1, CalculateGroup::Date},
    {CalculateOp::DayOfWeek, "DayOfWeek", 1, CalculateGroup::Date},
    {CalculateOp::DayOfMonth, "DayOfMonth", 1, CalculateGroup::Date},
    {CalculateOp::DayOfYear, "DayOfYear", 1, CalculateGroup::Date},
    {CalculateOp::Decrement, "Decrement", 1, CalculateGroup::Number},
    {CalculateOp::Floor, "Floor", 1, CalculateGroup::Number},
    {CalculateOp::Increment, "Increment", 1, CalculateGroup::Number},
    {CalculateOp::IndexOf, "IndexOf", 2, CalculateGroup::Text},
    {CalculateOp::JulianDayToDate, "JulianDayToDate", 1, CalculateGroup::Duration},
    {CalculateOp::LastIndexOf, "LastIndexOf", 2, CalculateGroup::Text},
    {CalculateOp::Length, "Length", 1, CalculateGroup::Text},
    {CalculateOp::LevDistance, "LevDistance", 2, CalculateGroup::Text},
    {CalculateOp::Log10, "Log10", 1, CalculateGroup::Number},
    {CalculateOp::Log2, "Log2", 1, CalculateGroup::Number},
    {CalculateOp::Ln, "Ln", 1, CalculateGroup::Number},
    {CalculateOp::Maximum, "Maximum", 2, CalculateGroup::Number},
    {CalculateOp::Minimum, "Minimum", 2, CalculateGroup::Number},
    {CalculateOp::Month, "Month", 1, CalculateGroup::Date},
    {CalculateOp::MSecsToDateTime, "MSecsToDateTime", 1, CalculateGroup::DateTime},
    {CalculateOp::MSecsToTime, "MSecsToTime", 1, CalculateGroup::Duration},
    {CalculateOp::Occurrences, "Occurrences", 2, CalculateGroup::Text},
    {CalculateOp::Or, "Or", 2, CalculateGroup::Boolean},
    {CalculateOp::OrBitwise, "OrBitwise", 2, CalculateGroup::Number},
    {CalculateOp::Quarter, "Quarter", 1, CalculateGroup::Date},
    {CalculateOp::Round, "Round", 1, CalculateGroup::Number},
    {CalculateOp::Sign, "Sign", 1, CalculateGroup::Number},
    {CalculateOp::TimeToMSecs, "TimeToMSecs", 1, CalculateGroup::Duration},
    {CalculateOp::WeekOfYear, "WeekOfYear", 1, CalculateGroup::Date},
    {CalculateOp::WordCount, "WordCount", 1, CalculateGroup::Text},
    {CalculateOp::Xor, "Xor", 2, CalculateGroup::Boolean},
    {CalculateOp::XorBitwise, "XorBitwise", 2, CalculateGroup::Number},
    {CalculateOp::Year, "Year", 1, CalculateGroup::Date},
};

QString CalculateOperation::shortName() const
{
    return QString::fromLatin1(text).section(QLatin1Char(' '), 0, 0);
}

QString CalculateOperation::keyword() const
{
    return QString::fromLatin1(text).section(QLatin1Char(' '), -1).toLower();
}

const CalculateOperation &CalculateOperation::at(int choice)
{
    return operations[choice];
}

QStringList CalculateOperation::texts()
{
    QStringList texts;
    for (const CalculateOperation &operation : operations) {
        texts.append(QString::fromLatin1(operation.text));
    }
    return texts;
}

QStringList CalculateOperation::keywords()
{
    QStringList words;
    for (const CalculateOperation &operation : operations) {
        words.append(operation.keyword());
    }
    return words;
}
