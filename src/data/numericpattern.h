#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

/// A date or time format of numbers with fixed characters between them, compiled once. It answers only for texts that
/// it can't get wrong; the caller asks Qt about the others.
class NumericPattern
{
public:
    enum Part { Day, Month, Year, TwoDigitYear, Hour, Minute, Second };
    enum Outcome { Match, NoMatch, Unsure };

    /// The numbers of a text, by Part.
    struct Numbers
    {
        int of[Second + 1] = {};
        int operator[](Part part) const { return of[part]; }
    };

    struct Step
    {
        Part part;
        int fixedWidth; ///< 0 for one or two digits
        int smallest;
        int largest;
        QByteArray literal; ///< the fixed characters in front
    };

    /// A pattern that is unsure of everything.
    NumericPattern() = default;
    /// A date format; unusable unless it holds day, month and year once each and no names, quotes or other letters.
    static NumericPattern forDate(const QString &format);
    /// A format of a date and, in front of it or behind it, hours and more of a time of 24 hours; unusable otherwise.
    static NumericPattern forDateTime(const QString &format);
    /// Hours and minutes, and seconds when asked for, separated by colons.
    static NumericPattern forTime(bool withSeconds);

    bool isUsable() const { return !m_steps.empty(); }
    Outcome match(const char *bytes, int size, Numbers *numbers) const;
    /// Appends the numbers of a day to `out`; `year` has at most four digits.
    void writeDate(int year, int month, int day, char *&out) const;
    /// Most bytes that writeDate appends.
    int writtenSize() const;

private:
    bool addDatePart(QChar letter, int count, const QByteArray &literal);
    bool addTimePart(QChar letter, int count, const QByteArray &literal);
    int partCount(Part part) const;
    bool hasWholeDate() const;
    bool hasTime() const;
    bool compile(const QString &format);

    std::vector<Step> m_steps;
    QByteArray m_tail;
};
