#include "transforms/format/casing.h"
#include "transforms/frame/celltransform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

namespace {

/// What is done, in this order.
struct Steps
{
    bool trim;
    bool lineFeed;
    bool tab;
    bool otherSpaces;
    bool carriageReturn;
    bool consecutive;
    bool nonPrintable;
};

template<class Char>
int trimmed(Char *text, int size)
{
    Char *begin = std::find_if_not(text, text + size, [](Char c) { return Casing::isSpace(c); });
    Char *end = text + size;
    while (end > begin && Casing::isSpace(end[-1])) {
        --end;
    }
    std::copy(begin, end, text);
    return static_cast<int>(end - begin);
}

template<class Char>
bool becomesSpace(Char c, const Steps &steps)
{
    if (c == Char('\n')) {
        return steps.lineFeed;
    }
    if (c == Char('\t')) {
        return steps.tab;
    }
    return steps.otherSpaces && c != Char('\r') && Casing::isSpace(c);
}

/// The steps between trimming and non-printable characters.
template<class Char>
int replaced(Char *text, int size, const Steps &steps)
{
    int end = 0;
    for (int i = 0; i < size; ++i) {
        const Char c = becomesSpace(text[i], steps) ? Char(' ') : text[i];
        const bool removed = (steps.carriageReturn && c == Char('\r'))
                             || (steps.consecutive && c == Char(' ') && end > 0 && text[end - 1] == Char(' '));
        if (!removed) {
            text[end++] = c;
        }
    }
    return end;
}

int printable(char *text, int size)
{
    return static_cast<int>(std::remove_if(text, text + size, [](char c) { return c < ' ' || c == 127; }) - text);
}

int printable(QChar *text, int size)
{
    int end = 0;
    for (int i = 0; i < size; ++i) {
        // A character of two units is one character: neither unit is printable by itself.
        if (i + 1 < size && text[i].isHighSurrogate() && text[i + 1].isLowSurrogate()) {
            if (QChar::isPrint(QChar::surrogateToUcs4(text[i], text[i + 1]))) {
                text[end++] = text[i];
                text[end++] = text[i + 1];
            }
            ++i;
        } else if (text[i].isPrint()) {
            text[end++] = text[i];
        }
    }
    return end;
}

/// True for a text that no step changes, which most are; the others are looked at more closely.
bool isTidy(const char *text, int size)
{
    char before = ' ';
    for (int i = 0; i < size; ++i) {
        if (text[i] < ' ' || text[i] == 127 || (text[i] == ' ' && before == ' ')) {
            return false;
        }
        before = text[i];
    }
    return size == 0 || before != ' ';
}

bool isTidy(const QChar *, int)
{
    return false;
}

template<class Char>
int tidied(Char *text, int size, const Steps &steps)
{
    if (isTidy(text, size)) {
        return size;
    }
    if (steps.trim) {
        size = trimmed(text, size);
    }
    size = replaced(text, size, steps);
    return steps.nonPrintable ? printable(text, size) : size;
}

} // namespace

/// Tidies blanks, line ends and control characters in the selected cells.
class TransformWhitespace final : public CellTransform
{
public:
    TransformWhitespace()
        : CellTransform("Whitespace", "Tidy whitespace (Spaces, Tabs, Carriage Returns etc) in the selected column(s).",
            "whitespaces tabs line feeds carriage returns trims leading trailing replaces consecutive printable nbsp "
            "breaks spaces cleanse lf cr")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::flag("Trim", "trim leading and trailing whitespace", true)
                .tip("Check to trim leading and trailing whitespace."),
            Option::flag("Line_Feed", "replace Line Feeds with Spaces", true)
                .tip("Check to replace Line Feeds with Spaces."),
            Option::flag("Tab", "replace Tabs with Spaces", true).tip("Check to replace Tabs with Spaces."),
            Option::flag("Non_Standard_Spaces", "replace non-standard Spaces with Spaces", true)
                .tip("Check to replace non-standard Spaces (non-breaking Space, Thin Space etc) with Spaces."),
            Option::flag("Carriage_Return", "remove Carriage Returns", true).tip("Check to remove Carriage Returns."),
            Option::flag("Consecutive_Spaces", "convert consecutive Spaces to one Space", true)
                .tip("Check to convert multiple consecutive Spaces into a single Space."),
            Option::flag("Non_Printable", "remove non-printable characters", true)
                .tip("Remove non-printable characters such as Tab, Line Feed, Carriage Return, Bell and Escape."),
        };
    }

    CellRule rule(const OptionValues &values, const Dataset &) const override
    {
        const Steps steps{values.flag("Trim"), values.flag("Line_Feed"), values.flag("Tab"),
            values.flag("Non_Standard_Spaces"), values.flag("Carriage_Return"), values.flag("Consecutive_Spaces"),
            values.flag("Non_Printable")};
        return CellRule::inPlace([steps](auto *text, int size) { return tidied(text, size, steps); });
    }
};

TRANSFORM_FACTORY(TransformWhitespace)
