#include "spreadsheet/xlsx/plaincell.h"

#include <array>
#include <cstring>

namespace spreadsheet {
namespace {

/// Characters that stand for themselves wherever they occur.
constexpr std::array<bool, 256> plainCharacters()
{
    std::array<bool, 256> plain{};
    for (size_t c = 0x20; c < 0x80; ++c) {
        plain[c] = c != '"' && c != '&' && c != '<' && c != '>' && c != ']';
    }
    return plain;
}
constexpr std::array<bool, 256> isPlain = plainCharacters();

const char *skipPlain(const char *from, const char *end)
{
    while (from < end && isPlain[static_cast<unsigned char>(*from)]) {
        ++from;
    }
    return from;
}

/// Behind the literal that must stand there; null when it doesn't.
template<size_t size>
const char *skip(const char (&literal)[size], const char *from, const char *end)
{
    constexpr size_t length = size - 1;
    return static_cast<size_t>(end - from) >= length && std::memcmp(from, literal, length) == 0 ? from + length
                                                                                                : nullptr;
}

/// Reads ` r="B7"` and its like; null for any other attribute and for one that was there before.
const char *readAttribute(const char *from, const char *end, PlainCell *cell)
{
    constexpr int shortest = 5;
    if (end - from < shortest || from[0] != ' ' || from[2] != '=' || from[3] != '"') {
        return nullptr;
    }
    std::string_view *wanted = nullptr;
    switch (from[1]) {
    case 'r':
        wanted = &cell->reference;
        cell->hasReference = true;
        break;
    case 's':
        wanted = &cell->format;
        break;
    case 't':
        wanted = &cell->type;
        break;
    default:
        return nullptr;
    }
    const char *value = from + 4;
    const char *behind = skipPlain(value, end);
    if (behind == end || *behind != '"' || behind == value || !wanted->empty()) {
        return nullptr;
    }
    *wanted = {value, static_cast<size_t>(behind - value)};
    return behind + 1;
}

} // namespace

const char *readPlainCell(const char *from, const char *end, PlainCell *cell)
{
    const char *at = skip("<c", from, end);
    while (at && at < end && *at == ' ') {
        at = readAttribute(at, end, cell);
    }
    if (!at || at == end) {
        return nullptr;
    }
    if (*at == '/') {
        return skip("/>", at, end);
    }
    const char *value = skip("><v>", at, end);
    cell->isInline = !value;
    value = value ? value : skip("><is><t>", at, end);
    if (!value) {
        return nullptr;
    }
    const char *behind = skipPlain(value, end);
    cell->value = {value, static_cast<size_t>(behind - value)};
    cell->hasValue = true;
    return cell->isInline ? skip("</t></is></c>", behind, end) : skip("</v></c>", behind, end);
}

const char *findCellStart(const char *from, const char *end)
{
    const void *found = memmem(from, static_cast<size_t>(end - from), "<c", 2);
    return found ? static_cast<const char *>(found) : end;
}

} // namespace spreadsheet
