#include "inputs/xmlattributetext.h"

#include "data/textcoding.h"

#include <QChar>
#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace {

struct Entity
{
    std::string_view name;
    char character;
};

constexpr Entity entities[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};

void appendCharacter(uint code, std::string *out)
{
    QChar units[2] = {QChar(code & 0xFFFF), QChar()};
    const bool isPair = QChar::requiresSurrogates(code);
    if (isPair) {
        units[0] = QChar(QChar::highSurrogate(code));
        units[1] = QChar(QChar::lowSurrogate(code));
    }
    char bytes[TextCoding::maxEncodedSize(2)];
    out->append(bytes, static_cast<size_t>(TextCoding::encode(bytes, units, isPair ? 2 : 1)));
}

/// Appends what the reference with this name, between '&' and ';', stands for; false when it isn't known.
bool appendReferenced(const std::string &name, std::string *out)
{
    if (name[0] == '#') {
        const bool isHex = name[1] == 'x';
        appendCharacter(static_cast<uint>(std::strtoul(name.c_str() + (isHex ? 2 : 1), nullptr, isHex ? 16 : 10)), out);
        return true;
    }
    for (const Entity &entity : entities) {
        if (entity.name == name) {
            out->push_back(entity.character);
            return true;
        }
    }
    return false;
}

} // namespace

bool XmlAttributeText::isUnusual(const char *begin, const char *end)
{
    return std::any_of(begin, end, [](char c) { return c == '&' || c == '\t' || c == '\n' || c == '\r'; });
}

void XmlAttributeText::decode(const char *begin, const char *end, std::string *out)
{
    out->clear();
    while (begin < end) {
        const char *const reference = std::find(begin, end, '&');
        out->append(begin, reference);
        if (reference == end) {
            return;
        }
        begin = std::find(reference, end, ';');
        begin += begin < end;
        const std::string name(reference + 1, begin - 1);
        if (name.empty() || !appendReferenced(name, out)) {
            out->append(reference, begin);
        }
    }
}
