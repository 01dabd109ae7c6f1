#include "data/controlspace.h"

#include "data/textcoding.h"

#include <algorithm>

void simplifyControlSpace(QString &text)
{
    const auto matters = [](QChar c) { return c.isSpace() && c != QLatin1Char(' '); };
    if (std::none_of(text.cbegin(), text.cend(), matters)) {
        return;
    }
    text.remove(QLatin1Char('\r'));
    std::replace_if(text.begin(), text.end(), matters, QChar(QLatin1Char(' ')));
}

int simplifyControlSpace(char *bytes, int size)
{
    const auto matters = [](char c) { return (c >= '\t' && c <= '\r') || c & 0x80; };
    const char *const end = bytes + size;
    if (std::none_of(static_cast<const char *>(bytes), end, matters)) {
        return size;
    }
    if (!TextCoding::isAscii(bytes, size)) {
        QString text = TextCoding::decode(bytes, size);
        simplifyControlSpace(text);
        return TextCoding::encode(bytes, text.constData(), text.size()); // never longer than it was
    }
    char *out = bytes;
    for (const char *p = bytes; p < end; ++p) {
        if (*p != '\r') {
            *out++ = matters(*p) ? ' ' : *p;
        }
    }
    return static_cast<int>(out - bytes);
}
