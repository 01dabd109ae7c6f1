#include "spreadsheet/xls/codepage.h"

#include <QByteArray>
#include <QTextCodec>

namespace spreadsheet {
namespace {

struct CodePage
{
    quint16 number;
    const char *name;
};

/// Those whose names don't follow from their numbers.
constexpr CodePage namedPages[] = {
    {367, "windows-1252"}, // ASCII
    {874, "TIS-620"},
    {932, "Shift_JIS"},
    {936, "GBK"},
    {949, "windows-949"},
    {950, "Big5"},
    {10000, "macintosh"},
    {10006, "x-mac-greek"},
    {10007, "x-mac-cyrillic"},
    {10029, "x-mac-centraleurroman"},
    {10081, "x-mac-turkish"},
    {32768, "macintosh"},
    {32769, "windows-1252"},
    {65001, "UTF-8"},
};

QByteArray nameOf(quint16 codePage)
{
    for (const CodePage &page : namedPages) {
        if (page.number == codePage) {
            return page.name;
        }
    }
    const bool isWindows = codePage >= 1250 && codePage <= 1258;
    const bool isOlder = codePage == 437 || (codePage >= 775 && codePage <= 869);
    return isWindows || isOlder ? (isWindows ? "windows-" : "IBM") + QByteArray::number(codePage) : QByteArray();
}

} // namespace

const QTextCodec *codecOfCodePage(quint16 codePage)
{
    const QByteArray name = nameOf(codePage);
    return name.isEmpty() ? nullptr : QTextCodec::codecForName(name);
}

} // namespace spreadsheet
