#pragma once

#include <QByteArray>
#include <QString>
#include <QVarLengthArray>

/// A date or time format of numbers and fixed characters between them, compiled once. It answers only for texts that
/// it can't get wrong; the caller asks Qt about the others.
class NumericPattern
{
public:
    enum Part { Day, Month, Year, TwoDigitYear, Hour, Minute, Second };
    enum Outcome { Match, NoMatch, Unsure };
    static constexpr int partCount = 7;

    /// What a text's numbers are, by Part.
    struct Numbers
    {
        int of[partCount] = {};
    };

    /// A pattern that is unsure of everything.
    NumericPattern() = default;
    /// A date format; unsure of everything unless it holds day, month and year once each and no names or quotes.
    static NumericPattern forDate(const QString &format);
    /// Hours and minutes, and seconds when asked for, separated by colons.
    static NumericPattern forTime(bool withSeconds);

    bool isUsable() const { return !m_steps.isEmpty(); }
    Outcome match(const char *bytes, int size, Numbers *numbers) const;

    struct Step
    {
        Part part;
        int fixedWidth; ///< 0 for one or two digits
        int largest;
        int smallest;
        int literalSize; ///< of the fixed characters in front
    };
    const QVarLengthArray<Step, 4> &steps() const { return m_steps; }
    const QByteArray &literals() const { return m_literals; }

private:
    void add(Part part, int width, const QByteArray &literal);

    QVarLengthArray<Step, 4> m_steps;
    QByteArray m_literals; ///< in order, the one behind the last step too
};
