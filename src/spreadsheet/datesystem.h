#pragma once

namespace spreadsheet {

/// A date and time of day in parts.
struct DateParts
{
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, millisecond = 0;
};

/// A date number of a book in parts, to the nearest millisecond. Numbers count days from 1900, with the 29th of
/// February 1900 that never was, or from 1904. A number below 1 of the 1900 system is a time on 1899-12-31. False for
/// numbers below 0, beyond the year 9999 or not finite.
bool unpackDate(double value, bool uses1904, DateParts *parts);
/// The date number of parts. A year of 0 gives the time alone. A date that doesn't exist, lies before the system's
/// first day or behind the year 9999 gives -1.
double packDate(const DateParts &parts, bool uses1904);

} // namespace spreadsheet
