#include "data/verifyrulenames.h"
#include "transforms/options/verifyrules.h"
#include "transforms/verify/ibanlengths.h"
#include "transforms/verify/ruletable.h"

#include <QDate>
#include <QSet>
#include <gtest/gtest.h>

TEST(VerifyRuleTable, OffersEveryRuleSomewhere)
{
    const int sizes[] = {40, 3, 13, 20, 12};
    QSet<int> offered;
    for (int type = VerifyColumn::Text; type <= VerifyColumn::Date; ++type) {
        const QVector<int> rules = VerifyRuleTable::columnRulesOf(type);
        EXPECT_EQ(rules.size(), sizes[type]) << type;
        for (int rule : rules) {
            offered.insert(rule);
            EXPECT_FALSE(verifyColumnRuleName(rule).isEmpty()) << rule;
            EXPECT_TRUE(VerifyRuleTable::columnRuleToolTip(rule).startsWith("Verify ")) << rule;
        }
    }
    EXPECT_EQ(offered.size(), VerifyRule::columnRuleCount);
}

TEST(VerifyRuleTable, WritesAndReadsParameters)
{
    using namespace VerifyRuleTable;
    const struct
    {
        const char *what;
        QVariant value;
        ParameterKind kind;
        QString text;
        QVariant readBack;
    } cases[] = {
        {"a text", " a,b ", Text, " a,b ", " a,b "},
        {"a list", "a,,b", CommaList, "a,,b", "a,,b"},
        {"six digits of a real", 1234567.5, Real, "1.23457e+06", 1234570.0},
        {"an integer", -12, Integer, "-12", -12},
        {"a number of characters", 7, Characters, "7", 7},
        {"a date", QDate(2024, 2, 29), Date, "2024-02-29", QDate(2024, 2, 29)},
        {"no date", "x", Date, "", QDate()},
        {"no number", "x", Integer, "0", 0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(parameterText(c.value, c.kind), c.text);
        EXPECT_EQ(parameterFromText(c.text, c.kind), c.readBack);
    }
    EXPECT_EQ(listEntries("a,, b,"), (QStringList{"a", " b"}));
}

TEST(VerifyRuleTable, StartsRulesWithTheirDefaults)
{
    EXPECT_EQ(VerifyRuleTable::columnRuleDefault(1), "NaN");
    EXPECT_EQ(VerifyRuleTable::columnRuleDefault(10), 999999.0);
    EXPECT_EQ(VerifyRuleTable::columnRuleDefault(13), QDate(2000, 1, 1));
    EXPECT_EQ(VerifyRuleTable::columnRuleDefault(14), QDate::currentDate());
    EXPECT_EQ(VerifyRuleTable::columnRuleDefault(16), 999);
    EXPECT_FALSE(VerifyRuleTable::columnRuleDefault(3).toString().isEmpty());
    EXPECT_FALSE(VerifyRuleTable::columnRuleDefault(7).isValid());
}

TEST(IbanLength, KnowsEveryCountryOfTheTable)
{
    int countries = 0;
    for (char first = 'A'; first <= 'Z'; ++first) {
        for (char second = 'A'; second <= 'Z'; ++second) {
            countries += ibanLength(first, second) > 0 ? 1 : 0;
        }
    }
    EXPECT_EQ(countries, 89);
    EXPECT_EQ(ibanLength('A', 'D'), 24);
    EXPECT_EQ(ibanLength('N', 'O'), 15);
    EXPECT_EQ(ibanLength('R', 'U'), 33);
    EXPECT_EQ(ibanLength('Y', 'E'), 30);
    EXPECT_EQ(ibanLength('Z', 'Z'), 0);
}
