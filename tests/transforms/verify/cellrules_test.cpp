#include "support/scopedlocale.h"
#include "transforms/verify/contacts.h"
#include "transforms/verify/verifying.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <random>

namespace {

struct CellCase
{
    const char *what;
    int ruleId;
    QVariant value;
    QStringList passing;
    QStringList failing;
    bool caseSensitive = true;
};

void expectFails(const CellCase &c, int type = VerifyColumn::Text)
{
    SCOPED_TRACE(c.what);
    const TransformRun run = verifyColumn(
        {type, {active(c.ruleId, c.value)}}, c.passing + c.failing, {{"Case_Sensitive", c.caseSensitive}});
    EXPECT_EQ(markedCells(run.result), c.failing);
    EXPECT_EQ(run.result.columnValues(ColumnIndex(0)), c.passing + c.failing);
}

QString fromUnits(std::initializer_list<ushort> units)
{
    return QString::fromUtf16(units.begin(), static_cast<int>(units.size()));
}

} // namespace

TEST(VerifyCellRules, JudgeCharacters)
{
    const CellCase cases[] = {
        {"34: punctuation of any script", 34, {}, {"", "a+b=1", "$5"}, {"a.b", "!", "«x»", "a_b"}},
        {"35: digits of any script, but no fractions", 35, {}, {"", "abc", "½", "²"}, {"a1", "٣", "x９"}},
        {"36: currency signs", 36, {}, {"", "5", "USD"}, {"$5", "5 €", "£"}},
        {"37: any whitespace", 37, {}, {"", "abc"}, {"a b", " ", "a\tb", "a\nb", fromUnits({'a', 0x3000})}},
        {"38: whitespace at an end", 38, {}, {"", "a b"}, {" a", "a ", "\ta", " ", fromUnits({'a', 0xA0})}},
        {"39: tabs", 39, {}, {"", "a b", "\n"}, {"a\tb", "\t"}},
        {"40: carriage returns", 40, {}, {"", "\n"}, {"a\r\nb"}},
        {"41: line feeds", 41, {}, {"", "\r"}, {"a\r\nb"}},
        {"42: two blanks or more", 42, {}, {"", " a b ", "\t\t"}, {"a  b", "   ", "é  "}},
        {"43: nothing but whitespace", 43, {}, {"", "a", " a "}, {" ", "\t\n", "  "}},
        {"44: symbols", 44, {}, {"", "a.b"}, {"a+b", "$", "€", "<"}},
        {"45: code units above 255", 45, {}, {"", "é", "ÿ", "a\x7f"}, {"Ā", "€", "😀"}},
        {"46: what can't be printed", 46, {}, {"", "a b", "é"}, {"a\tb", fromUnits({7}), fromUnits({0x200B})}},
    };
    for (const CellCase &c : cases) {
        expectFails(c);
    }
}

TEST(VerifyCellRules, JudgeTexts)
{
    const CellCase cases[] = {
        {"7: empty", 7, {}, {"a", " "}, {""}},
        {"53: not empty", 53, {}, {""}, {" ", "a"}},
        {"15: characters count, not bytes", 15, 3, {"abc", "éàü", "a b"}, {"", "ab", "éà"}},
        {"16: characters count, not bytes", 16, 2, {"", "ab", "éà"}, {"abc", "éàü", "a b"}},
        {"16: a character outside the first plane counts twice", 16, 1, {"é"}, {"😀"}},
        {"20: a regular expression anywhere in the text", 20, "b+c?", {"abb", "xbcx"}, {"", "B", "ac"}},
        {"20: without regard to case", 20, "^ab", {"AB", "abc"}, {"ba"}, false},
        {"20: an invalid one matches nothing", 20, "(", {}, {"", "("}},
        {"20: an empty one isn't tested", 20, "", {"", "a"}, {}},
        {"21: start", 21, "ab", {"abc"}, {"", "Abc", "xab"}},
        {"21: start without regard to case", 21, "É", {"éa", "Éa"}, {"ea"}, false},
        {"22: end", 22, "bc", {"abc", "bc"}, {"", "bcx", "aBC"}},
        {"23: within", 23, "b", {"abc", "b"}, {"", "aBc"}},
        {"23: within without regard to case", 23, "B", {"abc"}, {"ac"}, false},
        {"21: an empty text isn't tested", 21, "", {"", "a"}, {}},
        {"24: lower case", 24, {}, {"", "abc 1.", "é"}, {"aBc", "É"}},
        {"25: upper case", 25, {}, {"", "ABC 1.", "É"}, {"AbC", "é"}},
        {"26: title case", 26, {}, {"", "Title Case", "O'neil", "Élan", "1St"}, {"title Case", "TItle", "élan", "1st"}},
        {"27: sentence case", 27, {}, {"", "Sentence case.", "  Élan vital"}, {"Sentence Case", "sentence", "élan"}},
    };
    for (const CellCase &c : cases) {
        expectFails(c);
    }
}

TEST(VerifyCellRules, JudgeLists)
{
    const CellCase cases[] = {
        {"17: only listed values", 17, "red,dark blue", {"red", "dark blue"}, {"", "Red", "blue", "red "}},
        {"17: without regard to case", 17, "Red,Écru,\u212A", {"RED", "éCRU", "k", "K"}, {"blue"}, false},
        {"17: comparing folds no letter into two", 17, "straße", {"STRAßE"}, {"strasse"}, false},
        {"17: blanks count and empty entries don't", 17, "a,, b", {"a", " b"}, {"", "b"}},
        {"17: an empty list isn't tested", 17, ",", {"", "a"}, {}},
        {"18: no listed value", 18, "x,y", {"", "X", "xy"}, {"x", "y"}},
        {"18: without regard to case", 18, "x,y", {"", "z"}, {"X", "y"}, false},
    };
    for (const CellCase &c : cases) {
        expectFails(c);
    }
}

TEST(VerifyCellRules, JudgeNumbers)
{
    const CellCase cases[] = {
        {"1: numbers and listed texts", 1, "NaN", {"1", "-1.5e3", " 7 ", "NaN"}, {"", "nan", "abc", "$5", "inf"}},
        {"1: the list without regard to case", 1, "NaN,n/a", {"nan", "N/A", "2"}, {"none"}, false},
        {"2: whole numbers and listed texts", 2, "NaN", {"1", "-7", "12.000", "NaN"}, {"", "1.5", "3000000000", "x"}},
        {"9: texts are skipped", 9, 2.5, {"2.5", "3", "abc", "", "NaN"}, {"2.4999", "-1e300"}},
        {"10: texts are skipped", 10, 2.5, {"2.5", "-9", "abc", ""}, {"2.50001", "1e308"}},
        {"11: fractions are skipped", 11, 3, {"3", "4", "2.5", "x", ""}, {"2", "-2147483648"}},
        {"12: fractions are skipped", 12, 3, {"3", "2", "3.5", "x", "9999999999"}, {"4", "2147483647"}},
        {"9: a parameter that isn't a number is 0", 9, "x", {"0", "1"}, {"-1"}},
    };
    for (const CellCase &c : cases) {
        expectFails(c, VerifyColumn::Real);
    }
    const ScopedLocale german("de_DE");
    expectFails({"numbers are those of the locale", 1, "NaN", {"1,5", "1.000,5"}, {"1.5.5"}}, VerifyColumn::Real);
}

TEST(VerifyCellRules, JudgeDates)
{
    const VerifyRule format{3, "dd/MM/yyyy", VerifyRule::Warning, false};
    const struct
    {
        const char *what;
        QList<VerifyRule> rules;
        QStringList passing;
        QStringList failing;
    } cases[] = {
        {"3: dates that exist", {active(3, "dd/MM/yyyy")}, {"29/02/2024", " 01/01/2000 "},
            {"29/02/2023", "", "1/1/2000"}},
        {"3: blanks around the format don't count", {active(3, " yyyy-MM-dd ")}, {"2024-01-31"}, {"31/01/2024"}},
        {"13: from that day on", {format, active(13, QDate(2000, 1, 2))}, {"02/01/2000", "x", "", "2000-01-01"},
            {"01/01/2000", "31/12/1999"}},
        {"14: up to that day", {format, active(14, QDate(2000, 1, 2))}, {"02/01/2000", "x", ""}, {"03/01/2000"}},
        {"13: an invalid day isn't tested", {format, active(13, QDate())}, {"01/01/0001"}, {}},
        {"13: a day as text", {format, active(13, "2000-01-02")}, {"02/01/2000"}, {"01/01/2000"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        for (int type : {VerifyColumn::Date, VerifyColumn::Text}) {
            const TransformRun run = verifyColumn({type, c.rules}, c.passing + c.failing);
            EXPECT_EQ(markedCells(run.result), c.failing);
        }
    }
}

TEST(VerifyCellRules, JudgeCodes)
{
    const CellCase cases[] = {
        {"30: addresses, also among other text", 30, {},
            {"a@b.co", "Ann <ann.o'neil+x@sub.example-site.org>", "\"odd(name\"@b.co", "a@[127.0.0.1]", "X@Y.Z",
                "é@b.co.uk a@b.c"},
            {"", "a", "@b.co", "a@b", "a@-b.co", "a@b-.co", "a@b..co", "a@[1.2.3]"}},
        {"31: telephone numbers", 31, {},
            {"1-123-456-7890", "1 (123) 456 7890", "1.123.456.7890", "+91 (123) 456-7890", "1234567890"},
            {"", "123456789", "12345678901234", "123-456-78901", "x1234567890"}},
        {"32: thirteen digits", 32, {}, {"4006381333931", "4 006381 333931", "٤٠٠٦٣٨١٣٣٣٩٣١"},
            {"", "4006381333932", "036000291452", "4006381333931x", "4-006381333931", "40063813339310"}},
        {"33: twelve digits", 33, {}, {"036000291452", " 0 36000 29145 2"}, {"", "036000291453", "0036000291452"}},
        {"51: four lengths", 51, {}, {"96385074", "036000291452", "4006381333931", "10614141000415"},
            {"", "96385075", "036000291453", "4006381333932", "10614141000416", "0306406152", "106141410004150"}},
        {"49: ten or thirteen digits", 49, {},
            {"0306406152", "0-306-40615-2", "080442957X", "0 8044 2957 x", "978-0-306-40615-7", "9791034304103"},
            {"", "0306406153", "X804429570", "080442957XX", "4006381333931", "978030640615X", "97803064061570"}},
        {"52: ten capitals or digits", 52, {}, {"B00005N5PF", "0306406152", " B000 05N5PF"},
            {"", "b00005n5pf", "B00005N5P", "B00005N5PFF", "B00005-5PF"}},
        {"52: small letters too", 52, {}, {"b00005n5pf"}, {"b00005n5p"}, false},
        {"50: country, length and remainder", 50, {},
            {"GB82WEST12345698765432", "GB82 WEST 1234 5698 7654 32", "DE89370400440532013000", "NO9386011117947"},
            {"", "GB82WEST12345698765433", "GB82WEST1234569876543", "gb82west12345698765432", "ZZ82WEST12345698765432",
                "8282WEST12345698765432", "GB82-WEST-1234", "GB82WEST12345698765432GB82WEST12345698765432"}},
        {"50: small letters too", 50, {}, {"gb82west12345698765432"}, {"gb82west12345698765433"}, false},
    };
    for (const CellCase &c : cases) {
        expectFails(c);
    }
}

TEST(VerifyCellRules, JudgePaths)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("file.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QString missing = folder.filePath("missing");
    const QString cut = file.fileName() + QChar(0) + "x";
    expectFails({"28: folders", 28, {}, {folder.path(), "/"}, {"", " ", file.fileName(), missing}});
    expectFails({"29: files", 29, {}, {file.fileName()}, {"", " ", folder.path(), missing, cut}});
}

TEST(VerifyCellRules, DecideAboutAddressesAsTheExpressionDoes)
{
    const QStringList pieces{"a", "@", ".", "-", "\"", "[", "]", "1", "B", "c.d", "127.0.0.1", " ", "!", "x@y.z"};
    // What the expression asks of addresses without quotes and brackets.
    const QRegularExpression plain("[a-z0-9!#$%&'*+/=?^_`{|}~-]@(?:[a-z0-9](?:[a-z0-9-]*[a-z0-9])?\\.)+[a-z0-9]",
        QRegularExpression::CaseInsensitiveOption);
    std::mt19937 random(11);
    TextArena arena;
    Utf16Cell text;
    int found = 0;
    for (int i = 0; i < 20000; ++i) {
        QString value;
        for (int length = static_cast<int>(random() % 9); length >= 0; --length) {
            value += pieces.at(static_cast<int>(random() % static_cast<uint>(pieces.size())));
        }
        const bool expected = plain.match(value).hasMatch();
        if (!expected && (value.contains("\"@") || value.contains("@["))) {
            continue;
        }
        const Cell cell = arena.store(value);
        text.set(cell);
        ASSERT_EQ(Contacts::holdsEmail(text), expected) << value.toStdString();
        found += expected ? 1 : 0;
    }
    EXPECT_GT(found, 1000);
}

TEST(VerifyCellRules, RememberWhatTheySaidOnlyForTheSameText)
{
    QStringList cells;
    QStringList odd;
    for (int i = 0; i < 9000; ++i) {
        cells.append(QString::number(i * 7 % 5000));
        if (i * 7 % 5000 % 2 == 1) {
            odd.append(cells.constLast());
        }
    }
    EXPECT_EQ(markedCells(verifyColumn({0, {active(20, "[02468]$")}}, cells).result), odd);
}
