#include "data/values.h"
#include "support/grid.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

const ColumnIndex column0(0);
const QStringList formats{"M/d/yyyy", "d/M/yyyy", "yyyy-M-d"};

QStringList repeated(const QString &text, int count)
{
    QStringList texts;
    while (texts.size() < count) {
        texts.append(text);
    }
    return texts;
}

struct TypeCase
{
    const char *what;
    QStringList cells;
    bool ignoreCurrency;
    Dataset::ColumnType type;
};

TEST(ColumnTests, TellTheTypeOfAColumn)
{
    const TypeCase cases[] = {
        {"numbers, nan and empty cells", {"1", "nan", " ", "", "-2.5e3"}, false, Dataset::Numeric},
        {"nan alone counts for nothing", {"nan", "NaN"}, false, Dataset::Text},
        {"one word spoils it", {"1", "x"}, false, Dataset::Text},
        {"unless it stands outside the sample", repeated("1", 100) + QStringList{"x"}, false, Dataset::Numeric},
        {"currency", {"$1", "2 \u20ac"}, true, Dataset::Numeric},
        {"currency counts", {"$1"}, false, Dataset::Text},
        {"ones and zeros are numbers", {"1", "0"}, false, Dataset::Numeric},
        {"booleans", {"TRUE", "", "false"}, false, Dataset::Boolean},
        {"a blank is no boolean", {"true", " "}, false, Dataset::Text},
        {"times", {"1:30", "", "23:59:59"}, false, Dataset::Time},
        {"dates", {"1/2/2020", "", "31/12/2020"}, false, Dataset::Date},
        {"dates of two kinds", {"1/2/2020", "2020-1-2"}, false, Dataset::Text},
        {"the 51st value isn't looked at", repeated("1/2/2020", 50) + QStringList{"x"}, false, Dataset::Date},
        {"empty cells are no values", repeated("", 60) + repeated("1/2/2020", 49) + QStringList{"x"}, false,
            Dataset::Text},
        {"nothing at all", {"", ""}, false, Dataset::Text},
        {"no rows", {}, false, Dataset::Text},
    };
    for (const TypeCase &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(column(c.cells).columnType(column0, formats, nullptr, c.ignoreCurrency), c.type);
    }
}

TEST(ColumnTests, TheFormatThatFitsMostIsTold)
{
    QString matched = "before";
    EXPECT_TRUE(column({"1/2/2020", "31/1/2020"}).isColumnDate(column0, formats, &matched, 50));
    EXPECT_EQ(matched, "d/M/yyyy");
    EXPECT_FALSE(column({"31/1/2020", "2020-1-1", "2020-1-2"}).isColumnDate(column0, formats, &matched, 50));
    EXPECT_EQ(matched, "yyyy-M-d");
    EXPECT_TRUE(column({"31/1/2020", "x"}).isColumnDate(column0, formats, nullptr, 1));
    EXPECT_FALSE(column(QStringList{}).isColumnDate(column0, formats, &matched, 50));
    EXPECT_EQ(matched, "yyyy-M-d");
}

TEST(ColumnTests, JsonNumbers)
{
    EXPECT_TRUE(column({" 1.5 ", " ", "-2e3"}).isColumnJsonNumber(column0));
    EXPECT_FALSE(column({"1", "01"}).isColumnJsonNumber(column0));
    EXPECT_FALSE(column({""}).isColumnJsonNumber(column0));
}

struct OrderCase
{
    const char *what;
    QStringList values;
    QString dateFormat;
    QStringList sorted;
};

TEST(ValueOrder, SortsByNumberDateAndText)
{
    const OrderCase cases[] = {
        {"numbers by value", {"10", "9", "-1", "1e1"}, "", {"-1", "9", "10", "1e1"}},
        {"equal numbers by text", {"1.0", "01", "1"}, "", {"01", "1", "1.0"}},
        {"dates under a format", {"1/12/2020", "2/1/2020", "3/1/2019"}, "d/M/yyyy",
            {"3/1/2019", "2/1/2020", "1/12/2020"}},
        {"without a format they are text", {"1/12/2020", "2/1/2020", "3/1/2019"}, "",
            {"1/12/2020", "2/1/2020", "3/1/2019"}},
        {"text by code units, empty first", {"b", "B", "", "\u00e9"}, "", {"", "B", "b", "\u00e9"}},
    };
    for (const OrderCase &c : cases) {
        SCOPED_TRACE(c.what);
        QStringList values = c.values;
        sortValues(values, c.dateFormat);
        EXPECT_EQ(values, c.sorted);
        for (int i = 0; i + 1 < values.size(); ++i) {
            EXPECT_TRUE(valueLess(values.at(i), values.at(i + 1), c.dateFormat)) << i;
            EXPECT_FALSE(valueLess(values.at(i + 1), values.at(i), c.dateFormat)) << i;
        }
    }
}

TEST(ValueOrder, MixedListsKeepAllValues)
{
    // 9 < 10, 10 < "1a" < 9: there is no right order, but nothing may get lost.
    QStringList values;
    for (int i = 0; i < 3000; ++i) {
        values << QString::number(i % 97) << QString::number(i % 13) + "a";
    }
    QStringList sorted = values;
    sortValues(sorted, QString());
    std::sort(values.begin(), values.end());
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(sorted, values);
}

struct PairCase
{
    const char *what;
    QString a;
    QString b;
    QString formatA;
    QString formatB;
    bool isDate;
    bool isNumber;
};

TEST(ValueOrder, ClassifiesPairs)
{
    const PairCase cases[] = {
        {"two dates, each by its format", "1/2/2020", "2020-2-1", "d/M/yyyy", "yyyy-M-d", true, false},
        {"one format is not enough", "1/2/2020", "1/2/2020", "d/M/yyyy", "", false, false},
        {"one date is not enough", "1/2/2020", "5", "d/M/yyyy", "d/M/yyyy", false, false},
        {"two numbers, currency ignored", "$5", "5.0", "", "", false, true},
        {"one number is not enough", "5", "x", "", "", false, false},
        {"dates go before numbers", "20200201", "20200202", "yyyyMMdd", "yyyyMMdd", true, false},
        {"numbers where dates fail", "1", "2", "d/M/yyyy", "d/M/yyyy", false, true},
    };
    clearValueCaches();
    for (const PairCase &c : cases) {
        SCOPED_TRACE(c.what);
        bool isDate = false;
        bool isNumber = false;
        QDate dateA;
        QDate dateB;
        double numberA = 0;
        double numberB = 0;
        classifyPair(c.a, c.b, c.formatA, c.formatB, isDate, dateA, dateB, isNumber, numberA, numberB);
        EXPECT_EQ(isDate, c.isDate);
        EXPECT_EQ(isNumber, c.isNumber);
        for (bool allowNumbers : {true, false, true}) {
            SCOPED_TRACE(allowNumbers);
            QDate cachedA;
            QDate cachedB;
            double cachedNumber = 0;
            classifyPairCached(c.a, c.b, c.formatA, c.formatB, isDate, cachedA, cachedB, allowNumbers, isNumber,
                cachedNumber, numberB);
            EXPECT_EQ(isDate, c.isDate);
            EXPECT_EQ(isNumber, c.isNumber && allowNumbers);
            EXPECT_EQ(cachedA, dateA);
            EXPECT_EQ(cachedB, dateB);
            EXPECT_EQ(cachedNumber, isNumber ? numberA : cachedNumber);
        }
    }
}

} // namespace
