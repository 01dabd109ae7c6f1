#include "spreadsheet/xlsx/xmltext.h"

namespace spreadsheet {
namespace {

constexpr size_t escapeSize = 7; // _xHHHH_

int hexDigit(char c)
{
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The unit of an escape that begins at `at`; below 0 when none does.
int unitAt(std::string_view text, size_t at)
{
    if (text.size() < at + escapeSize || text[at] != '_' || text[at + 1] != 'x' || text[at + 6] != '_') {
        return -1;
    }
    int unit = 0;
    for (size_t i = at + 2; i < at + 6; ++i) {
        const int digit = hexDigit(text[i]);
        if (digit < 0) {
            return -1;
        }
        unit = unit * 16 + digit;
    }
    return unit;
}

bool isHighSurrogate(int unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(int unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

void appendUtf8(int character, std::string *text)
{
    const auto put = [text](int byte) { text->push_back(static_cast<char>(byte)); };
    if (character < 0x80) {
        put(character);
        return;
    }
    if (character < 0x800) {
        put(0xC0 | (character >> 6));
    } else {
        if (character < 0x10000) {
            put(0xE0 | (character >> 12));
        } else {
            put(0xF0 | (character >> 18));
            put(0x80 | ((character >> 12) & 0x3F));
        }
        put(0x80 | ((character >> 6) & 0x3F));
    }
    put(0x80 | (character & 0x3F));
}

/// Appends the character that the escape at `at` begins; gives the bytes that it takes, 0 when it makes none.
size_t appendEscape(std::string_view text, size_t at, std::string *plain)
{
    const int unit = unitAt(text, at);
    if (unit < 0 || isLowSurrogate(unit)) {
        return 0;
    }
    if (!isHighSurrogate(unit)) {
        appendUtf8(unit, plain);
        return escapeSize;
    }
    const int low = unitAt(text, at + escapeSize);
    if (!isLowSurrogate(low)) {
        return 0;
    }
    appendUtf8(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00), plain);
    return escapeSize * 2;
}

} // namespace

void appendXmlText(std::string_view text, QByteArray *xml)
{
    for (const char c : text) {
        switch (c) {
        case '&':
            xml->append("&amp;");
            break;
        case '<':
            xml->append("&lt;");
            break;
        case '>':
            xml->append("&gt;");
            break;
        case '"':
            xml->append("&quot;");
            break;
        case '\t':
            xml->append("&#9;");
            break;
        case '\n':
            xml->append("&#10;");
            break;
        case '\r':
            xml->append("&#13;");
            break;
        default:
            xml->append(c);
        }
    }
}

void appendXmlAttribute(std::string_view name, std::string_view value, QByteArray *xml)
{
    xml->append(' ');
    xml->append(name.data(), static_cast<int>(name.size()));
    xml->append("=\"");
    appendXmlText(value, xml);
    xml->append('"');
}

void appendUnescaped(std::string_view text, std::string *plain)
{
    size_t done = 0;
    for (size_t at = text.find("_x"); at != std::string_view::npos; at = text.find("_x", at)) {
        plain->append(text.substr(done, at - done));
        const size_t taken = appendEscape(text, at, plain);
        done = at + taken;
        at += taken > 0 ? taken : 1;
    }
    plain->append(text.substr(done));
}

} // namespace spreadsheet
