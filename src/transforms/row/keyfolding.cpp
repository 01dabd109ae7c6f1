#include "transforms/row/keyfolding.h"

#include "data/textbuffer.h"

#include <algorithm>
#include <array>

namespace {

/// What becomes of each ASCII character; 0 for one that is dropped.
std::array<char, 128> asciiTable(const KeyFolding &folding)
{
    std::array<char, 128> table{};
    for (size_t c = 1; c < table.size(); ++c) {
        const QString text = folding.folded(QString(QLatin1Char(static_cast<char>(c))));
        table[c] = text.isEmpty() ? '\0' : text.at(0).toLatin1();
    }
    return table;
}

} // namespace

QString KeyFolding::folded(const QString &text) const
{
    QString result = caseSensitive ? text : text.toLower();
    if (ignoreSpaces || ignorePunctuation) {
        const auto isDropped = [this](QChar c) {
            return (ignoreSpaces && c.isSpace()) || (ignorePunctuation && c.isPunct());
        };
        const auto end = std::remove_if(result.begin(), result.end(), isDropped);
        result.truncate(static_cast<int>(end - result.begin()));
    }
    return result;
}

CellColumn KeyFolding::folded(const CellColumn &column, const std::function<bool()> &isStopped) const
{
    constexpr int rowsBetweenLooks = 4096;
    CellColumn keys = column;
    if (changesNothing()) {
        return keys;
    }
    const std::array<char, 128> table = asciiTable(*this);
    const TextArenaPointer arena(new TextArena);
    keys.keep(arena);
    Cell *cells = keys.cells.data();
    TextBuffer buffer;
    for (int row = 0; row < keys.size(); ++row) {
        if (row % rowsBetweenLooks == 0 && isStopped && isStopped()) {
            break;
        }
        const Cell &cell = column.at(row);
        const char *bytes = cell.bytes();
        const int size = cell.size();
        if (!TextCoding::isAscii(bytes, size) || std::memchr(bytes, 0, static_cast<size_t>(size))) {
            cells[row] = arena->store(folded(cell.text()));
            continue;
        }
        buffer.resize(0);
        for (int i = 0; i < size; ++i) {
            const char c = table[static_cast<size_t>(bytes[i])];
            if (c != '\0') {
                buffer.append(c);
            }
        }
        if (buffer.size() != size || std::memcmp(buffer.constData(), bytes, static_cast<size_t>(size)) != 0) {
            cells[row] = arena->store(buffer.constData(), buffer.size());
        }
    }
    return keys;
}
