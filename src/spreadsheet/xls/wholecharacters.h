#pragma once

#include <QChar>

namespace spreadsheet {

/// So many of `count` units of UTF-16 fit into a place for `room` of them when no surrogate pair is cut in two: readers
/// take each record of a long text for itself.
inline int wholeCharacters(const ushort *text, int count, int room)
{
    if (count <= room || room <= 0) {
        return qMin(count, room);
    }
    return QChar::isHighSurrogate(text[room - 1]) && QChar::isLowSurrogate(text[room]) ? room - 1 : room;
}

} // namespace spreadsheet
