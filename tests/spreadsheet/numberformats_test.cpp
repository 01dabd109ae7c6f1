#include "spreadsheet/numberformats.h"

#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

TEST(NumberFormats, TellsDatesByCode)
{
    struct
    {
        const char *code;
        bool isDate;
    } const cases[] = {
        {"yyyy-mm-dd", true},
        {"D/M/YY", true},
        {"h:mm AM/PM", true},
        {"mm:ss.0", true},
        {"[h]:mm:ss", true},
        {"[mm]", true},
        {"[SS].000", true},
        {"[$-409]d mmm yy;@", true},
        {"[$-F800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy", true},
        {"[Red][>5]yyyy", true},
        {"\"on \"dd.mm.", true},
        {"_-yyyy_-", true},
        {"General", false},
        {"GENERAL\" days\"", false},
        {"Standard", false},
        {"0.00", false},
        {"#,##0.00_);[Red](#,##0.00)", false},
        {"0.00E+00", false},
        {"# ?/?", false},
        {"@", false},
        {"0\" days\"", false},
        {"\"days", false},
        {"0\\d", false},
        {"0_d", false},
        {"*d0", false},
        {"0;yyyy", false}, // only negative numbers
        {"[Red]0", false},
        {"[$USD] 0", false},
        {"[hm]0", false},
        {"[h", false},
        {"[]0", false},
        {"\\", false},
        {"0%", false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.code);
        EXPECT_EQ(isDateFormat(164, c.code), c.isDate);
        EXPECT_EQ(isDateFormat(14, c.code), c.isDate) << "the code counts, not the number";
    }
}

TEST(NumberFormats, TellsDatesByNumber)
{
    for (int number = -1; number < 200; ++number) {
        SCOPED_TRACE(number);
        const QString code = builtInNumberCode(number);
        if (!code.isEmpty()) {
            EXPECT_EQ(isDateFormat(number, QString()), isDateFormat(164, code)) << code.toStdString();
        }
    }
    EXPECT_TRUE(isDateFormat(14, QString()));
    EXPECT_TRUE(isDateFormat(57, QString()));
    EXPECT_FALSE(isDateFormat(49, QString()));
    EXPECT_FALSE(isDateFormat(164, QString()));
}

} // namespace
