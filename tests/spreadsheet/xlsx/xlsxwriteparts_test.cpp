#include "spreadsheet/xlsx/write/formulawriter.h"
#include "spreadsheet/xlsx/write/linktarget.h"

#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

TEST(XlsxWriteFormula, TakesOverWhatIsWellFormed)
{
    const struct
    {
        const char *what, *text;
        const char *file = nullptr; ///< when it isn't the text
    } cases[] = {
        {"operators and signs", "-A1+B$2*($C3-4)^2%&\"x\""},
        {"comparisons", "A1<>B1=(A1<=2)"},
        {"numbers in all forms", "1+.5+2.+1E+5+1e-3"},
        {"empty arguments", "IF(A1,,3)"},
        {"no arguments", "NOW()+PI( )"},
        {"a text with quotes", "\"say \"\"hi\"\"\"&A1"},
        {"whole columns and rows", "SUM(A:B,$C:D,1:3)"},
        {"an intersection", "SUM(A1:B2 B1:C2)"},
        {"a union", "SUM((A1,B2))"},
        {"other sheets", "Data!A1+'My ''own'' sheet'!$B$2"},
        {"names", "rate*1.5+_x.y"},
        {"errors", "IF(A1=0,#N/A,#DIV/0!)"},
        {"an array", "SUM({1,-2;\"a\",TRUE})"},
        {"line breaks", "SUM(\n A1 ,\n B1 )"},
        {"names of other scripts", "größe+1"},
        {"newer functions get a prefix", "CONCAT(A1,IFS(A1,1))", "_xlfn.CONCAT(A1,_xlfn.IFS(A1,1))"},
        {"in any case", "textjoin(\",\",1,A1)", "_xlfn.textjoin(\",\",1,A1)"},
        {"some get a longer one", "SORT(A1:A3)", "_xlfn._xlws.SORT(A1:A3)"},
        {"those that have it keep it", "_xlfn.CONCAT(A1)"},
        {"not in texts", "\"CONCAT(\"&A1"},
        {"not for names", "CONCAT+1"},
    };
    FormulaWriter writer([](std::string_view name) { return name == "Data" || name == "My 'own' sheet"; }, false);
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_TRUE(writer.convert(c.text));
        EXPECT_EQ(writer.result(), c.file ? c.file : c.text);
    }
}

TEST(XlsxWriteFormula, RefusesWhatProgramsCallDamage)
{
    const struct
    {
        const char *what;
        std::string text;
    } cases[] = {
        {"nothing", ""},
        {"only blanks", "  "},
        {"an operator without a right side", "1+"},
        {"two operands", "1 2"},
        {"an open parenthesis", "SUM(A1"},
        {"a closed one too many", "A1)"},
        {"nothing in parentheses", "()"},
        {"an open text", "\"abc"},
        {"a text of more than 255 characters", '"' + std::string(256, 'x') + '"'},
        {"arguments by semicolons", "IF(A1;2;3)"},
        {"a decimal comma", "1,5"},
        {"another equals sign in front", "== total =="},
        {"plain words", "see below!"},
        {"a sheet that isn't there", "Missing!A1"},
        {"another workbook", "[Book2.xlsx]Data!A1"},
        {"another workbook in quotes", "'[Book2.xlsx]Data'!A1"},
        {"a sheet without a reference", "Data!"},
        {"a blank behind a sheet", "Data! A1"},
        {"a table, where there are none", "Sales[Qty]"},
        {"rows of different lengths in an array", "{1,2;3}"},
        {"a reference in an array", "{A1}"},
        {"a dollar sign in a name", "a$b$c$"},
        {"too few arguments", "SUM(ABS())"},
        {"too many arguments", "ABS(1,2)"},
        {"an error that isn't one", "#OOPS!"},
        {"a number that runs into a name", "12ab"},
        {"too deep", std::string(70, '(') + "1" + std::string(70, ')')},
        {"too long", "1" + std::string(5000, '+') + std::string(5000, '1')},
    };
    FormulaWriter writer([](std::string_view name) { return name == "Data"; }, false);
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_FALSE(writer.convert(c.text)) << c.text;
    }
}

TEST(XlsxWriteFormula, AnyBytesAreTakenOrRefused)
{
    FormulaWriter writer([](std::string_view) { return true; }, true);
    const std::string_view pieces[] = {"A1", "(", ")", "SUM(", ",", "\"", "'", "!", "[", "]", "{", "}", "1.5", "E",
        "#REF!", "$", " ", ":", "+", "é", "\xFF", ";", "%", "_"};
    unsigned seed = 12345;
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (int i = 0; i < 8; ++i) {
            seed = seed * 1664525u + 1013904223u;
            text += pieces[(seed >> 16) % std::size(pieces)];
        }
        if (writer.convert(text)) {
            // What was converted is in the files' form and stays so.
            const std::string converted = writer.result();
            EXPECT_TRUE(writer.convert(converted)) << text;
            EXPECT_EQ(writer.result(), converted);
        }
    }
}

TEST(XlsxWriteLink, TargetsAreAddressesOrPlaces)
{
    const struct
    {
        const char *what;
        QString target;
        QByteArray address, location;
    } cases[] = {
        {"an address stays", QStringLiteral("http://a.org/x?q=1&r=2#top"), "http://a.org/x?q=1&r=2#top", ""},
        {"blanks and quotes are encoded", QStringLiteral("http://a.org/a b\"<>"), "http://a.org/a%20b%22%3C%3E", ""},
        {"not twice", QStringLiteral("http://a.org/a%20b%"), "http://a.org/a%20b%25", ""},
        {"characters beyond ASCII stay", QStringLiteral("http://a.org/\u00e9 \U0001F600"),
            "http://a.org/\xC3\xA9%20\xF0\x9F\x98\x80", ""},
        {"those of a host", QStringLiteral("https://m\u00fcnchen.de:80/x"), "https://m\xC3\xBCnchen.de:80/x", ""},
        {"of one that no registry would take", QStringLiteral("http://\U0001F4A9.la/"), "http://\xF0\x9F\x92\xA9.la/",
            ""},
        {"an encoded host", QStringLiteral("http://m%C3%BCnchen.de/"), "http://m%C3%BCnchen.de/", ""},
        {"control characters are encoded", QStringLiteral("http://a.org/\u0001\u0085\uFFFF"),
            "http://a.org/%01%C2%85%EF%BF%BF", ""},
        {"a port that is none", QStringLiteral("http://\u00fc:b/"), "http%3A%2F%2F\xC3\xBC%3Ab%2F", ""},
        {"one fragment", QStringLiteral("a#b#c"), "a#b%23c", ""},
        {"brackets of a host", QStringLiteral("http://[::1]:8080/[x]"), "http://[::1]:8080/%5Bx%5D", ""},
        {"mail", QStringLiteral("mailto:a@b.org?subject=x y"), "mailto:a@b.org?subject=x%20y", ""},
        {"a file beside", QStringLiteral("docs\\my file.txt"), "docs%5Cmy%20file.txt", ""},
        {"a path", QStringLiteral("/home/u/my file.txt"), "file:///home/u/my%20file.txt", ""},
        {"a path with a drive", QStringLiteral("C:\\a\\b c.txt"), "file:///C:/a/b%20c.txt", ""},
        {"a path on a server", QStringLiteral("\\\\host\\share\\f.txt"), "file://host/share/f.txt", ""},
        {"a place in the workbook", QStringLiteral("#'My sheet'!A1"), "", "'My sheet'!A1"},
        {"blanks around are cut", QStringLiteral("  http://a.org/\n"), "http://a.org/", ""},
        {"no address at all becomes a name", QStringLiteral("::: %zz"), "%3A%3A%3A%20%25zz", ""},
        {"nothing", QStringLiteral(" \t"), "", ""},
        {"only a number sign", QStringLiteral("#"), "", ""},
        {"as many characters as an address may have", QString(2079, QChar(0x20AC)),
            QByteArray("\xE2\x82\xAC").repeated(2079), ""},
        {"too long once encoded, so as it was typed",
            QStringLiteral("http://a.org/") + QString(1000, QChar(' ')) + QChar('x'),
            "http://a.org/" + QByteArray(1000, ' ') + 'x', ""},
        {"too long a path", QStringLiteral("C:\\") + QString(2076, QChar('x')), "C:\\" + QByteArray(2076, 'x'), ""},
        {"too long", QString(2080, QChar('x')), "", ""},
        {"as long a place as may be", QChar('#') + QString(2078, QChar(0x20AC)), "",
            QByteArray("\xE2\x82\xAC").repeated(2078)},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const LinkTarget link = linkTarget(c.target);
        EXPECT_EQ(link.address.toStdString(), c.address.toStdString());
        EXPECT_EQ(link.location.toStdString(), c.location.toStdString());
    }
}

} // namespace
