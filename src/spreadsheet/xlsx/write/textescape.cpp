#include "spreadsheet/xlsx/write/textescape.h"

#include <array>

namespace spreadsheet {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

/// What a byte asks for: nothing, a second look, or an escape.
enum class ByteKind : unsigned char { Plain, Markup, Control, Underscore, Multibyte };

constexpr std::array<ByteKind, 256> byteKinds()
{
    std::array<ByteKind, 256> kinds{};
    for (size_t i = 0; i < kinds.size(); ++i) {
        kinds[i] = i < 0x20 ? ByteKind::Control : i < 0x80 ? ByteKind::Plain : ByteKind::Multibyte;
    }
    for (const unsigned char c : {'&', '<', '>', '"', '\t', '\n'}) {
        kinds[c] = ByteKind::Markup;
    }
    kinds['_'] = ByteKind::Underscore;
    return kinds;
}

constexpr std::array<ByteKind, 256> kinds = byteKinds();

void appendMarkup(std::string &out, char c, bool inAttribute)
{
    switch (c) {
    case '&':
        out += "&amp;";
        break;
    case '<':
        out += "&lt;";
        break;
    case '>':
        out += "&gt;";
        break;
    case '"':
        out += inAttribute ? "&quot;" : "\"";
        break;
    default:
        out += inAttribute ? (c == '\t' ? "&#9;" : "&#10;") : (c == '\t' ? "\t" : "\n");
    }
}

void appendCode(std::string &out, unsigned code)
{
    static const char digits[] = "0123456789ABCDEF";
    out += "_x";
    for (int shift = 12; shift >= 0; shift -= 4) {
        out += digits[(code >> shift) & 0xF];
    }
    out += '_';
}

bool isHexDigit(char c)
{
    return (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f');
}

/// True for a text that begins with _xHHHH_.
bool looksEscaped(std::string_view text)
{
    return text.size() >= 7 && (text[1] | 0x20) == 'x' && isHexDigit(text[2]) && isHexDigit(text[3])
           && isHexDigit(text[4]) && isHexDigit(text[5]) && text[6] == '_';
}

/// Bytes of the character that the text begins with; 0 when they aren't one.
size_t characterLength(std::string_view text)
{
    const auto byte = [text](size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    const size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) {
        return 0;
    }
    for (size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            return 0;
        }
    }
    const bool isOverlong = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
    const bool isOutside = (first == 0xED && byte(1) > 0x9F) || (first == 0xF4 && byte(1) > 0x8F);
    return isOverlong || isOutside ? 0 : length;
}

/// U+FFFE or U+FFFF, which XML can't hold; 0 for others.
unsigned noncharacter(std::string_view character)
{
    const bool is = character.size() == 3 && character[0] == '\xEF' && character[1] == '\xBF'
                    && static_cast<unsigned char>(character[2]) >= 0xBE;
    return is ? 0xFFC0u + static_cast<unsigned char>(character[2]) - 0x80 : 0;
}

template<bool isCellText>
void append(std::string &out, std::string_view text, bool inAttribute)
{
    size_t copied = 0;
    for (size_t i = 0; i < text.size();) {
        const ByteKind kind = kinds[static_cast<unsigned char>(text[i])];
        if (kind == ByteKind::Plain
            || (kind == ByteKind::Underscore && !(isCellText && looksEscaped(text.substr(i))))) {
            ++i;
            continue;
        }
        const size_t length = kind == ByteKind::Multibyte ? characterLength(text.substr(i)) : 1;
        const unsigned wrong = length == 3 ? noncharacter(text.substr(i, 3)) : 0;
        if (kind == ByteKind::Multibyte && length > 0 && wrong == 0) {
            i += length;
            continue;
        }
        out.append(text.substr(copied, i - copied));
        if (kind == ByteKind::Markup) {
            appendMarkup(out, text[i], inAttribute);
        } else if (!isCellText || length == 0) {
            out += replacement;
        } else {
            appendCode(out, wrong != 0 ? wrong : static_cast<unsigned char>(text[i]));
        }
        // A byte that begins no character takes those with it that can only continue one.
        i += std::max<size_t>(length, 1);
        while (length == 0 && i < text.size() && (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80) {
            ++i;
        }
        copied = i;
    }
    out.append(text.substr(copied));
}

template<bool isCellText>
QByteArray appended(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    std::string out;
    append<isCellText>(out, {bytes.constData(), static_cast<size_t>(bytes.size())}, true);
    return QByteArray(out.data(), static_cast<int>(out.size()));
}

} // namespace

void appendCellText(std::string &out, std::string_view text)
{
    append<true>(out, text, false);
}

QByteArray cellText(const QString &text)
{
    return appended<true>(text);
}

QByteArray plainText(const QString &text)
{
    return appended<false>(text);
}

} // namespace spreadsheet
