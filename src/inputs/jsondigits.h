#pragma once

#include "text/cappedlist.h"

/// Numbers of JSON that are whole and too large for each whole number to have a double of its own: those that come out
/// with other digits than the source has.
class JsonDigits
{
public:
    /// Below this, 2^53, each whole number has a double of its own.
    static constexpr double limit = 9007199254740992.0;

    /// Looks at the numbers of the next record from now on.
    void startRecord() { m_countBefore = m_numbers.count(); }
    /// Forgets what was found since startRecord().
    void forgetRecord();
    /// Looks at one number, whose value the caller has.
    void check(const char *begin, const char *end, double value);
    /// Looks at all numbers of a text of JSON.
    void checkAll(const char *begin, const char *end);
    /// A line that tells of the numbers with other digits; empty when there are none.
    QString warning() const;

private:
    CappedList m_numbers;
    qint64 m_countBefore = 0;
};
