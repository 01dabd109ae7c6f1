#pragma once

#include "data/cell.h"
#include "data/textbuffer.h"

#include <QDate>
#include <QHash>
#include <optional>

/// A date and time in the usual ISO form, in local time or, with "Z", in universal time.
struct IsoDateTime
{
    qint64 msecs; ///< since 1970-01-01T00:00 on the clock that the text shows
    bool isUtc;

    QDate date() const;
    /// Another day at the same time; invalid dates aren't for here.
    IsoDateTime on(const QDate &day) const;
};

/// Does with ISO dates and times what QDateTime does, much quicker, for the usual form and for days on which the clocks
/// aren't changed. Where it can't say it gives nothing, and QDateTime decides.
class IsoDateTimes
{
public:
    /// "2024-02-29T10:20:30" with or without milliseconds of three digits and "Z".
    static std::optional<IsoDateTime> read(const Cell &cell);
    /// Replaces what `out` holds by the text with milliseconds; false for years that have no ISO form.
    static bool write(const IsoDateTime &dateTime, TextBuffer &out);
    /// Milliseconds since 1970 in universal time.
    std::optional<qint64> toEpoch(const IsoDateTime &dateTime) const;
    std::optional<IsoDateTime> toLocal(qint64 epochMsecs) const;
    /// `msecs` later; they are bounded by the years that have an ISO form.
    std::optional<IsoDateTime> added(const IsoDateTime &dateTime, qint64 msecs) const;
    /// True when every time of that day exists, once.
    bool isPlainDay(const IsoDateTime &dateTime) const { return offset(dateTime).has_value(); }

private:
    std::optional<qint64> offset(const IsoDateTime &dateTime) const;

    mutable QHash<qint64, std::optional<qint64>> m_offsets; ///< of local time, by day
};
