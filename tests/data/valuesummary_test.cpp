#include "data/valuesummary.h"

#include "data/values.h"
#include "support/printers.h"
#include "support/randomtext.h"
#include "support/scopedlocale.h"

#include <QMap>
#include <QSet>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr int kindCount = static_cast<int>(SummaryKind::CountDistinct) + 1;

/// The summary as one would work it out with pencil and paper.
QString plainSummary(SummaryKind kind, const QStringList &values)
{
    if (!ValueSummary::isNumeric(kind)) {
        QStringList texts = values;
        texts.removeAll(QString());
        return QString::number(
            kind == SummaryKind::Count ? texts.size() : QSet<QString>(texts.cbegin(), texts.cend()).size());
    }
    QList<double> numbers = toNumberList(values, false, true);
    const QList<double> inOrder = numbers;
    std::sort(numbers.begin(), numbers.end());
    const int n = numbers.size();
    double sum = 0;
    for (double number : inOrder) {
        sum += number;
    }
    const double mean = n == 0 ? 0 : sum / n;
    double squares = 0;
    QMap<double, int> counts;
    for (double number : inOrder) {
        squares += (number - mean) * (number - mean);
        ++counts[number];
    }
    const int most = n == 0 ? 0 : *std::max_element(counts.cbegin(), counts.cend());
    const double results[] = {sum, n == 0 ? 0 : numbers.first(), n == 0 ? 0 : numbers.last(), mean,
        n == 0       ? 0
        : n % 2 == 1 ? numbers.at(n / 2)
                     : (numbers.at(n / 2 - 1) + numbers.at(n / 2)) / 2,
        0, n < 2 ? 0 : std::sqrt(squares / (n - 1))};
    return kind == SummaryKind::Mode ? formatRealList(counts.keys(most))
                                     : formatReal(results[static_cast<int>(kind)], false, -1, true);
}

} // namespace

TEST(SummarizeValues, SumsUpLists)
{
    const struct
    {
        const char *what;
        SummaryKind kind;
        QStringList values;
        QString summary;
    } cases[] = {
        {"a sum", SummaryKind::Sum, {"1", "2.5", "-0.25"}, "3.25"},
        {"a sum leaves texts out", SummaryKind::Sum, {"1", "x", "", "2"}, "3"},
        {"a sum of nothing", SummaryKind::Sum, {}, "0"},
        {"a sum without grouping", SummaryKind::Sum, {"1,000,000", "500,000.5"}, "1500000.5"},
        {"currency symbols don't count", SummaryKind::Sum, {"$5", "€ 2", "3£"}, "10"},
        {"words that libraries take for numbers", SummaryKind::Sum, {"nan", "inf", "-INF", "$nan", "1"}, "1"},
        {"a sum beyond all numbers", SummaryKind::Sum, {"1e308", "1e308"}, "NaN"},
        {"a sum that cancels out", SummaryKind::Sum, {"0.1", "0.2", "-0.3"}, "0"},
        {"the smallest", SummaryKind::Minimum, {"5", "-3", "x", "2"}, "-3"},
        {"the smallest of positive numbers isn't 0", SummaryKind::Minimum, {"5", "3"}, "3"},
        {"the smallest of none", SummaryKind::Minimum, {"x"}, "0"},
        {"the largest", SummaryKind::Maximum, {"5", "-3", "12"}, "12"},
        {"the largest of negative numbers isn't 0", SummaryKind::Maximum, {"-5", "-3"}, "-3"},
        {"the largest of none", SummaryKind::Maximum, {}, "0"},
        {"an average counts numbers only", SummaryKind::Average, {"1", "2", "x", ""}, "1.5"},
        {"an average of none", SummaryKind::Average, {"x"}, "0"},
        {"the middle of an odd number", SummaryKind::Median, {"10", "9", "1"}, "9"},
        {"the middle of an even number", SummaryKind::Median, {"10", "1", "2", "7"}, "4.5"},
        {"the middle of one", SummaryKind::Median, {"4"}, "4"},
        {"the middle of none", SummaryKind::Median, {}, "0"},
        {"all that come most often, ascending", SummaryKind::Mode, {"2", "1", "3", "2", "1"}, "1,2"},
        {"numbers are the same however written", SummaryKind::Mode, {"1.0", "2", "1"}, "1"},
        {"all come once", SummaryKind::Mode, {"10", "9"}, "9,10"},
        {"most often of none", SummaryKind::Mode, {"x"}, ""},
        {"a deviation", SummaryKind::StandardDeviation, {"2", "4", "4", "4", "5", "5", "7", "9"}, "2.1380899352994"},
        {"a deviation of one", SummaryKind::StandardDeviation, {"7", "x"}, "0"},
        {"a count takes any text", SummaryKind::Count, {"a", "", "1", "a", " "}, "4"},
        {"a count of none", SummaryKind::Count, {""}, "0"},
        {"a count of different texts, case and blanks counting", SummaryKind::CountDistinct,
            {"a", "A", "a", "", "a ", "1", "1.0", "a text of some length", "a text of some length"}, "6"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(summarizeValues(c.kind, c.values), c.summary);
    }
}

TEST(SummarizeValues, FollowsTheLocale)
{
    const ScopedLocale german("de_DE");
    EXPECT_EQ(summarizeValues(SummaryKind::Sum, {"1,5", "1.000", "2.5"}), "1001,5");
    EXPECT_EQ(summarizeValues(SummaryKind::Mode, {"0,5", "1"}), "0,5,1");
}

TEST(SummarizeValues, IsWhatAPlainCalculationGives)
{
    RandomText random(7);
    const QStringList texts{"", "x", "1", "1", "2.0", "2", "-3.5", "$7", "1e3", "0.1", "0.2", "-0", "1,234.5",
        "7777777777", "a longer text", "another text"};
    for (int round = 0; round < 300; ++round) {
        QStringList values;
        for (int left = random.below(12); left > 0; --left) {
            values.append(texts.at(random.below(texts.size())));
        }
        SCOPED_TRACE(values.join("|").toStdString());
        for (int kind = 0; kind < kindCount; ++kind) {
            EXPECT_EQ(summarizeValues(SummaryKind(kind), values), plainSummary(SummaryKind(kind), values)) << kind;
        }
    }
}

TEST(ValueSummary, SumsUpAnyRowsAndTellsHowMany)
{
    CellColumn column;
    const TextArenaPointer arena(new TextArena);
    column.keep(arena);
    for (const char *text : {"1", "same text", "2", "same text", "", "4"}) {
        column.cells.append(arena->store(QString(text)));
    }
    const std::vector<int> rows{5, 4, 3, 2, 1, 0};
    const auto summary = [&](SummaryKind kind, int from, int to) {
        ValueSummary values(kind, column);
        TextBuffer text;
        values.write(rows.data(), rows.data() + 1, text); // a list before must not show
        const int count = values.write(rows.data() + from, rows.data() + to, text);
        return TextCoding::decode(text.constData(), text.size()) + "/" + QString::number(count);
    };
    EXPECT_EQ(summary(SummaryKind::Sum, 0, 6), "7/3");
    EXPECT_EQ(summary(SummaryKind::Sum, 3, 5), "2/1");
    EXPECT_EQ(summary(SummaryKind::Sum, 1, 3), "0/0");
    EXPECT_EQ(summary(SummaryKind::Count, 0, 6), "5/5");
    EXPECT_EQ(summary(SummaryKind::CountDistinct, 0, 6), "4/5");
    EXPECT_EQ(summary(SummaryKind::CountDistinct, 2, 5), "2/3");
}
