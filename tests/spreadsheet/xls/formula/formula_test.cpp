#include "spreadsheet/xls/formula/formulacompiler.h"
#include "spreadsheet/xls/formula/sharedtokens.h"

#include "support/printers.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

/// A workbook with two sheets.
int sheetNumber(const QString &name)
{
    return QStringList({QStringLiteral("Data"), QStringLiteral("My Sheet"), QStringLiteral("It's")})
        .indexOf(QRegExp(QRegExp::escape(name), Qt::CaseInsensitive));
}

QByteArray tokens(const QString &formula)
{
    CompiledFormula compiled;
    QString reason;
    return compileFormula(formula.toUtf8(), sheetNumber, &compiled, &reason) ? compiled.tokens.toHex()
                                                                             : reason.toUtf8();
}

struct FormulaCase
{
    const char *what;
    const char *formula;
    const char *tokens;
};

void expectTokens(std::initializer_list<FormulaCase> cases)
{
    for (const FormulaCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(tokens(QString::fromUtf8(c.formula)), c.tokens) << c.formula;
    }
}

} // namespace

TEST(Formula, ConstantsAndOperators)
{
    expectTokens({
        {"a small whole number takes two bytes", "65535", "1effff"},
        {"a larger one is a real", "65536", "1f000000000000f040"},
        {"with exponent", "1.5e3", "1edc05"},
        {"a fraction without digits in front", ".5", "1f000000000000e03f"},
        {"a text with a quote", "\"a\"\"b\"", "170300612262"},
        {"a text beyond Latin-1", "\"€\"", "170101ac20"},
        {"booleans in any case", "true", "1d01"},
        {"an error", "#DIV/0!", "1c07"},
        {"products before sums", "1+2*3", "1e01001e02001e03000503"},
        {"from left to right", "8-4-2", "1e08001e0400041e020004"},
        {"powers too", "2^3^2", "1e02001e0300071e020007"},
        {"a sign binds tighter than a power", "-2^2", "1e0200131e020007"},
        {"a sign behind an operator", "2^-1", "1e02001e01001307"},
        {"two signs", "1--1", "1e01001e01001304"},
        {"percent behind a sign", "-5%", "1e05001314"},
        {"texts are joined before they are compared", "\"a\"&\"b\"=\"ab\"", "17010061170100620817020061620b"},
        {"the comparisons of two characters", "1<>2>=3<=4", "1e01001e02000e1e03000c1e04000a"},
        {"parentheses are kept", "(1+2)*3", "1e01001e020003151e030005"},
        {"space matters nowhere between operands and operators", " 1 +\n2 ", "1e01001e020003"},
    });
}

TEST(Formula, References)
{
    expectTokens({
        {"a relative cell as a value", "B3", "44020001c0"},
        {"an absolute one", "$B$3", "4402000100"},
        {"half of each", "$B3+B$3",
            "440200018044020001"
            "4003"},
        {"the last cell", "IV65536", "44ffffffc0"},
        {"a rectangle in a sum is a reference", "SUM(A1:B2)", "250000010000c001c019100000"},
        {"its corners in any order", "SUM(B2:A1)", "250000010000c001c019100000"},
        {"corners keep their signs", "SUM($B2:A$1)",
            "250000010000400180"
            "19100000"},
        {"whole columns", "SUM(A:$B)", "250000ffff0040010019100000"},
        {"whole rows", "SUM(2:$3)", "25010002000080ff0019100000"},
        {"a cell of another sheet", "data!A1", "5a0000000000c0"},
        {"a name in quotes", "'My Sheet'!A1:A2",
            "5b0100000001"
            "0000c000c0"},
        {"a quote in a name", "'It''s'!$A$1", "5a020000000000"},
        {"a union", "SUM((A1,B2))",
            "290b00240000"
            "00c0240100"
            "01c010"
            "1519100000"},
        {"an intersection", "SUM(A1:B2 B1:B2)", "291300250000010000c001c0250000010001c001c00f19100000"},
        {"a range up to what a function gives", "SUM(A1:INDEX(A1:A9,3))",
            "291600240000"
            "00c0250000080000c000c01e0300"
            "22021d00"
            "1119100000"},
    });
}

TEST(Formula, FunctionsAndClasses)
{
    expectTokens({
        {"no arguments", "PI()", "411300"},
        {"volatile ones are marked", "NOW()", "19010000414a00"},
        {"a fixed number of arguments", "ROUND(A1,2)", "44000000c01e0200411b00"},
        {"many arguments", "SUM(1,2)", "1e01001e020042020400"},
        {"in small letters, with a space", "sum (1,2)", "1e01001e020042020400"},
        {"an argument that is left out", "LEFT(\"a\",)",
            "1701006116420273"
            "00"},
        {"a choice jumps over what it doesn't need", "IF(A1,2,3)",
            "44000000c0"
            "19020700"
            "1e0200"
            "19080a00"
            "1e0300"
            "19080300"
            "42030100"},
        {"without an else", "IF(A1,2)",
            "44000000c0"
            "19020700"
            "1e0200"
            "19080300"
            "42020100"},
        {"a table of jumps", "CHOOSE(1,5,6)",
            "1e0100"
            "19040200"
            "0600"
            "0d00"
            "1400"
            "1e0500"
            "19080a00"
            "1e0600"
            "19080300"
            "42036400"},
        {"values inside an array function are arrays", "SUMPRODUCT((A1:A2>1)*1)",
            "650000010000c000c01e01000d151e0100054201e400"},
        {"so are functions of them", "SUMPRODUCT(LEN(A1:A2))", "650000010000c000c06120004201e400"},
        {"but references stay such", "SUMPRODUCT(SUMIF(A1:A2,B1:B2))",
            "250000010000c000c0650000010001c001c0620259014201e400"},
        {"a condition takes a single value", "SUMPRODUCT(IF(A1:A2,1,2))",
            "450000010000c000c019020700"
            "1e0100"
            "19080a00"
            "1e0200"
            "19080300"
            "62030100"
            "4201e400"},
        {"a rectangle as a number is cut to one cell", "A1:A2+1", "450000010000c000c01e010003"},
        {"what is looked up in is a reference", "VLOOKUP(A1,B1:C9,2)", "44000000c0250000080001c002c01e020042036600"},
    });
    CompiledFormula compiled;
    QString reason;
    ASSERT_TRUE(compileFormula("SUM({1,\"a\";TRUE,#N/A})", sheetNumber, &compiled, &reason));
    EXPECT_EQ(compiled.tokens.toHex(), "600101000000000019100000");
    EXPECT_EQ(compiled.arrays.toHex(), "010100"
                                       "01000000000000f03f"
                                       "020100"
                                       "0061"
                                       "040100000000000000"
                                       "102a00000000000000");
}

TEST(Formula, WhatCantBeWritten)
{
    const FormulaCase cases[] = {
        {"an unknown function", "FROB(1)", "the function FROB is unknown"},
        {"one that is newer than the file format", "IFERROR(1,2)", "the function IFERROR is unknown"},
        {"too many arguments", "PI(1)", "PI can't have 1 argument"},
        {"too few", "IF(1)", "IF can't have 1 argument"},
        {"a name", "Total*2", "it uses the name 'Total'"},
        {"another workbook", "[b.xls]S!A1", "it refers to another workbook"},
        {"another workbook in quotes", "'[b.xls]S'!A1", "it refers to another workbook"},
        {"several sheets", "SUM(Data:It!A1)", "it refers to several sheets at once"},
        {"several sheets in quotes", "'Data:My Sheet'!A1", "it refers to several sheets at once"},
        {"several sheets named like cells", "SUM(Q1:Q4!A1)", "it refers to several sheets at once"},
        {"a sheet that isn't there", "Gone!A1", "there is no sheet 'Gone'"},
        {"too far down", "A65537", "'A65537' lies outside the sheet"},
        {"too far right", "IW1", "'IW1' lies outside the sheet"},
        {"columns too far right", "SUM(A:XFD)", "'A:XFD' lies outside the sheet"},
        {"nothing behind an operator", "1+", "it ends too early"},
        {"two operands", "1 2", "an operator is missing or misplaced"},
        {"a union of numbers", "SUM((1,2))", "an operator is missing or misplaced"},
        {"an open parenthesis", "(1", "it ends too early"},
        {"an open text", "\"a", "a quote is not closed"},
        {"an array with rows of different lengths", "{1,2;3}", "the rows of an array differ in length"},
        {"nothing", "", "it ends too early"},
        {"a stray character", "1 @ 2", "unexpected '@'"},
    };
    for (const FormulaCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(tokens(QString::fromUtf8(c.formula)), c.tokens);
    }
    EXPECT_EQ(tokens(QStringLiteral("(").repeated(65) + QLatin1Char('1')), "it is nested too deeply");
    EXPECT_EQ(tokens(QString(9000, QLatin1Char('1'))), "it is too long");
    EXPECT_EQ(tokens(QStringLiteral("1") + QStringLiteral("+A1").repeated(400)), "it is too long");
    EXPECT_EQ(tokens(QLatin1Char('"') + QString(256, QLatin1Char('x')) + QLatin1Char('"')),
        "a text in it has more than 255 characters");
    EXPECT_EQ(tokens(QStringLiteral("-").repeated(5000) + QLatin1Char('1')), "it is too long");
}

/// Random words in random order are either refused with a reason or give codes that can be walked over to their end.
TEST(Formula, RandomWords)
{
    const char *const words[] = {"1", "2.5", "\"t\"", "A1", "$B$2", "A:A", "3:4", "Data!A1", "'My Sheet'!B2:C3", "TRUE",
        "#REF!", "+", "-", "*", "/", "^", "&", "=", "<", "<>", ":", ",", " ", "%", "(", ")", "SUM(", "IF(", "CHOOSE(",
        "INDEX(", "SUMPRODUCT(", "LEN(", "NOW()", "'", "\"", "#", "!", "$", "1e", "é"};
    QRandomGenerator random(7);
    int compiledCount = 0;
    for (int i = 0; i < 50000; ++i) {
        QByteArray formula;
        for (int n = random.bounded(1, 12); n > 0; --n) {
            formula += words[random.bounded(int(std::size(words)))];
        }
        CompiledFormula compiled;
        QString reason;
        if (compileFormula(formula, sheetNumber, &compiled, &reason)) {
            ++compiledCount;
            QByteArray walked = compiled.tokens;
            ASSERT_TRUE(expandSharedTokens(&walked, 5, 5)) << formula.constData();
            ASSERT_EQ(walked, compiled.tokens);
        } else {
            ASSERT_FALSE(reason.isEmpty()) << formula.constData();
        }
    }
    EXPECT_GT(compiledCount, 500);
}

TEST(Formula, SharedTokens)
{
    const struct
    {
        const char *what;
        const char *shared;
        const char *expanded; // empty when it can't be
    } cases[] = {
        {"one column to the left in the same row", "4c0000ffc0", "44090002c0"},
        {"two rows up, where the sheet ends", "4cf6ff00c0", "44ffff03c0"},
        {"an absolute column and row stay", "4c07000500", "4407000500"},
        {"a rectangle", "2d0000010000c001c0", "2509000a0003c004c0"},
        {"in the array class", "6c000000c0", "64090003c0"},
        {"behind a text and a number", "170200616223", ""},
        {"codes around it", "1e01004c0000ffc00319020700", "1e010044090002c00319020700"},
        {"a code that is cut", "4c0000", ""},
        {"an unknown code", "1800", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        QByteArray bytes = QByteArray::fromHex(c.shared);
        const bool isExpanded = expandSharedTokens(&bytes, 9, 3);
        EXPECT_EQ(isExpanded, *c.expanded != '\0');
        EXPECT_EQ(bytes.toHex(), *c.expanded ? c.expanded : c.shared);
    }
}
