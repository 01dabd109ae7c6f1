#include "inputs/fixedwidthguess.h"

#include "data/textcoding.h"
#include "inputs/textcleanup.h"

#include <QtAlgorithms>
#include <algorithm>
#include <functional>
#include <map>
#include <new>

namespace {

// Up to so many lines, all count; of more, the tail doesn't, where totals and footers stand.
constexpr size_t fewLines = 20;
constexpr double shareThatCounts = 0.9;
constexpr int mostLines = 200;
// A table that wide would take the memory of most computers before its first row.
constexpr size_t mostColumns = 1 << 20;

size_t groupSize(size_t lines)
{
    return lines <= 10 ? 2 : lines <= 50 ? 5 : 10;
}

/// The entry with the highest count; of several, the one whose key is first.
template<class Tally>
typename Tally::const_iterator highest(const Tally &tally)
{
    return std::max_element(
        tally.begin(), tally.end(), [](const auto &a, const auto &b) { return a.second < b.second; });
}

} // namespace

void FixedWidthGuess::addLine(const char *begin, const char *end)
{
    ++m_lineCount;
    const char *textBegin = begin;
    const char *textEnd = end;
    TextCleanup::trim(textBegin, textEnd);
    if (textBegin == textEnd) {
        return;
    }
    Line line;
    line.inked.resize(static_cast<size_t>((end - begin) / 64 + 1));
    for (const char *at = begin; at < end; ++at) {
        const auto byte = static_cast<uchar>(*at);
        if ((byte & 0xC0) == 0x80) {
            continue;
        }
        // Characters of four bytes take two positions.
        for (int units = byte < 0xF0 ? 1 : 2; units > 0; --units, ++line.length) {
            const quint64 bit = byte != ' ' && byte != '\t';
            line.inked[static_cast<size_t>(line.length / 64)] |= bit << line.length % 64;
        }
    }
    m_lines.push_back(std::move(line));
}

bool FixedWidthGuess::hasEnough() const
{
    return m_lines.size() >= mostLines && int(shareThatCounts * m_lineCount) >= mostLines;
}

size_t FixedWidthGuess::linesThatCount() const
{
    if (m_lines.size() <= fewLines) {
        return m_lines.size();
    }
    const int most = qMin(int(shareThatCounts * m_lineCount), mostLines);
    return qMin(m_lines.size(), static_cast<size_t>(most));
}

/// Where columns begin in lines from `first` on. A column begins at a position that is inked in one of the lines,
/// behind one that is blank in all of them; the first column begins at 0 whatever stands before it.
FixedWidthGuess::Starts FixedWidthGuess::startsOfGroup(size_t first, size_t count) const
{
    std::vector<quint64> inked;
    for (size_t i = first; i < first + count; ++i) {
        const std::vector<quint64> &line = m_lines[i].inked;
        inked.resize(qMax(inked.size(), line.size()));
        std::transform(line.begin(), line.end(), inked.begin(), inked.begin(), std::bit_or<>());
    }
    Starts starts;
    quint64 previous = 0;
    for (size_t word = 0; word < inked.size(); ++word) {
        // A start is inked where the position before isn't.
        quint64 bits = inked[word] & ~(inked[word] << 1 | previous);
        previous = inked[word] >> 63;
        for (; bits; bits &= bits - 1) {
            starts.push_back(static_cast<int>(word * 64 + qCountTrailingZeroBits(bits)));
        }
        if (starts.size() > mostColumns) {
            throw std::bad_alloc();
        }
    }
    if (!starts.empty()) {
        starts.front() = 0;
    }
    return starts;
}

/// Groups of lines vote: first on the number of columns, then, among groups with a number that has most votes, on where
/// the columns begin; a draw goes to those that begin further left. The last column ends with the longest line.
QList<int> FixedWidthGuess::widths() const
{
    const size_t lines = linesThatCount();
    if (lines == 0) {
        return {};
    }
    const size_t size = qMin(groupSize(lines), lines);
    std::map<Starts, int> tally;
    std::map<size_t, int> columnTally;
    for (size_t first = 0; first + size <= lines; first += size) {
        const Starts starts = startsOfGroup(first, size);
        ++columnTally[starts.size()];
        ++tally[starts];
    }
    const int most = highest(columnTally)->second;
    for (auto it = tally.begin(); it != tally.end();) {
        it = columnTally[it->first.size()] == most ? std::next(it) : tally.erase(it);
    }
    const Starts starts = highest(tally)->first;
    int width = 0;
    for (size_t i = 0; i < lines; ++i) {
        width = qMax(width, m_lines[i].length);
    }
    QList<int> widths;
    for (size_t i = 0; i < starts.size(); ++i) {
        widths.append((i + 1 < starts.size() ? starts[i + 1] : width) - starts[i]);
    }
    return widths;
}

QList<int> guessFixedWidths(const QStringList &lines)
{
    FixedWidthGuess guess;
    QByteArray bytes;
    for (const QString &line : lines) {
        bytes.resize(0);
        TextCoding::appendEncoded(bytes, line.constData(), line.size());
        guess.addLine(bytes.constData(), bytes.constData() + bytes.size());
    }
    return guess.widths();
}
