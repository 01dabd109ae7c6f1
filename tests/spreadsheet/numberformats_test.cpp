#include "spreadsheet/numberformats.h"

#include <gtest/gtest.h>

using namespace spreadsheet;

namespace {

TEST(NumberFormats, TellsByCodeWhatNumbersStandFor)
{
    const NumberMeaning date = NumberMeaning::Date;
    const NumberMeaning elapsed = NumberMeaning::ElapsedTime;
    const NumberMeaning plain = NumberMeaning::Number;
    struct
    {
        const char *code;
        NumberMeaning meaning;
    } const cases[] = {
        {"yyyy-mm-dd", date},
        {"D/M/YY", date},
        {"h:mm AM/PM", date},
        {"mm:ss.0", date},
        {"[$-409]d mmm yy;@", date},
        {"[$-F800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy", date},
        {"[Red][>5]yyyy", date},
        {"\"on \"dd.mm.", date},
        {"_-yyyy_-", date},
        {"h:mm;[h]:mm", date}, // only negative numbers are spans
        {"h:mm\"[h]\"", date},
        {"h:mm\\[s\\]", date},
        {"[h]:mm:ss", elapsed},
        {"[hh]:mm", elapsed},
        {"[mm]", elapsed},
        {"[m]", elapsed},
        {"[SS].000", elapsed},
        {"[s]", elapsed},
        {"[Red][h]:mm", elapsed},
        {"mm:[ss]", elapsed}, // whatever stands in front
        {"General", plain},
        {"GENERAL\" days\"", plain},
        {"Standard", plain},
        {"0.00", plain},
        {"#,##0.00_);[Red](#,##0.00)", plain},
        {"0.00E+00", plain},
        {"# ?/?", plain},
        {"@", plain},
        {"0\" days\"", plain},
        {"\"days", plain},
        {"0\\d", plain},
        {"0_d", plain},
        {"*d0", plain},
        {"0;yyyy", plain}, // only negative numbers
        {"[Red]0", plain},
        {"[$USD] 0", plain},
        {"[hm]0", plain},
        {"[h", plain},
        {"[]0", plain},
        {"\\", plain},
        {"0%", plain},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.code);
        EXPECT_EQ(numberMeaning(164, c.code), c.meaning);
        EXPECT_EQ(numberMeaning(14, c.code), c.meaning) << "the code counts, not the number";
    }
}

TEST(NumberFormats, TellsByNumberWhatNumbersStandFor)
{
    for (int number = -1; number < 200; ++number) {
        SCOPED_TRACE(number);
        const QString code = builtInNumberCode(number);
        if (!code.isEmpty()) {
            EXPECT_EQ(numberMeaning(number, QString()), numberMeaning(164, code)) << code.toStdString();
        }
    }
    EXPECT_EQ(numberMeaning(14, QString()), NumberMeaning::Date);
    EXPECT_EQ(numberMeaning(57, QString()), NumberMeaning::Date);
    EXPECT_EQ(numberMeaning(46, QString()), NumberMeaning::ElapsedTime);
    EXPECT_EQ(numberMeaning(79, QString()), NumberMeaning::ElapsedTime);
    EXPECT_EQ(numberMeaning(49, QString()), NumberMeaning::Number);
    EXPECT_EQ(numberMeaning(164, QString()), NumberMeaning::Number);
}

} // namespace
