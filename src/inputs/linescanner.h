#pragma once

#include "inputs/bytescanner.h"

#include <QtAlgorithms>

/// Calls `line(begin, end, unusual)` for each whole line of `begin` to `end`, without its line feed, carriage return or
/// both; `unusual` when the line may hold anything but ASCII from the blank on. Returns where the first unfinished line
/// begins; with `last`, the text ends there, and what stands behind the last line end is a line unless it is empty.
/// ByteScanner::groupSize bytes behind `end` are readable.
template<class Line>
char *forEachLine(char *begin, char *end, bool last, const Line &line)
{
    const ByteScanner scanner('\n', false);
    char *next = begin;
    bool unusual = false;
    for (char *group = begin; group < end; group += ByteScanner::groupSize) {
        ByteScanner::Masks masks = scanner.scan(group);
        if (end - group < ByteScanner::groupSize) {
            masks.events &= (quint64(1) << (end - group)) - 1;
        }
        for (; masks.events; masks.events &= masks.events - 1) {
            const uint bit = qCountTrailingZeroBits(masks.events);
            char *const at = group + bit;
            if (at < next) {
                continue; // the second half of a line end
            }
            if (*at == '\r' && at + 1 == end && !last) {
                return next;
            }
            const quint64 before = (quint64(1) << bit) - 1;
            line(next, at, unusual || (masks.unusual & before));
            masks.unusual &= ~before;
            unusual = false;
            next = at + (*at == '\r' && at + 1 < end && at[1] == '\n' ? 2 : 1);
        }
        unusual = unusual || masks.unusual;
    }
    if (last && next < end) {
        line(next, end, unusual);
        next = end;
    }
    return next;
}
