#include "data/columnprofile.h"

#include "data/dataset.h"
#include "data/evenrows.h"
#include "data/profilelines.h"
#include "support/grid.h"
#include "support/printers.h"
#include "support/randomtext.h"

#include <QMap>
#include <gtest/gtest.h>

namespace {

const ColumnIndex first(0);
const QStringList isoDates{QStringLiteral("yyyy-MM-dd")};

ColumnProfile profileOf(const QStringList &cells, const QStringList &formats = {}, bool withNumbers = true)
{
    ColumnProfile profile;
    column(cells).columnProfile(profile, first, formats, withNumbers);
    return profile;
}

QString explored(ProfileLine line, const ColumnProfile &profile)
{
    return ProfileWriter(QString(), true).text(line, profile);
}

QStringList tableOf(const QStringList &cells, ValueFrequencies::Order order, int limit)
{
    const Dataset dataset = column(cells);
    QStringList lines;
    for (const ValueFrequencies::Line &line :
        ValueFrequencies(dataset.column(first)).table(dataset.column(first), order, limit)) {
        EXPECT_EQ(
            line.value < 0, line.text.startsWith(QLatin1String("(")) && line.text.contains(QLatin1String(" other ")));
        lines.append(line.text + QLatin1Char('=') + line.countText);
    }
    return lines;
}

} // namespace

TEST(ColumnProfile, ReadsAValueAsTheFirstKindThatFits)
{
    const struct
    {
        const char *sentence;
        const char *cell;
        ProfileMetric kind;
    } cases[] = {
        {"blanks are text", "  ", ProfileMetric::Text},
        {"a currency sign doesn't stop a number", "$12", ProfileMetric::Numeric},
        {"nan is text", "nan", ProfileMetric::Text},
        {"1.0 is an integer", "1.0", ProfileMetric::Integer},
        {"a fraction makes a real", "1.5", ProfileMetric::Real},
        {"minus zero is zero", "-0", ProfileMetric::Zero},
        {"case doesn't matter for booleans", "TRUE", ProfileMetric::Boolean},
        {"a number is no boolean", "1", ProfileMetric::Positive},
        {"a date under the format found", "2020-01-31", ProfileMetric::Date},
        {"a day that doesn't exist is text", "2020-02-30", ProfileMetric::Text},
        {"nothing is empty", "", ProfileMetric::Empty},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.sentence);
        const ColumnProfile profile = profileOf(
            {QString::fromUtf8(each.cell), "2020-01-01", "2020-01-01", "2020-01-02"}, isoDates);
        EXPECT_EQ(profile.rowsOf(each.kind).value(0, -1), 0);
        EXPECT_EQ(profile.m_empty + profile.m_numeric + profile.m_boolean + profile.m_date + profile.m_text, 4);
        EXPECT_EQ(profile.m_integer + profile.m_real, profile.m_numeric);
        EXPECT_EQ(profile.m_negative + profile.m_zero + profile.m_positive, profile.m_numeric);
    }
}

TEST(ColumnProfile, FindsTheRowsBehindEachMetric)
{
    const ColumnProfile profile = profileOf(
        {"7", "", "-2", "abcd", "7.0", "2020-01-05", "2020-01-01", "", "2020-01-05", "x"}, isoDates);
    const struct
    {
        ProfileMetric metric;
        QVector<int> rows;
    } cases[] = {
        {ProfileMetric::Empty, {1, 7}},
        {ProfileMetric::NonEmpty, {0, 2, 3, 4, 5, 6, 8, 9}},
        {ProfileMetric::Numeric, {0, 2, 4}},
        {ProfileMetric::Real, {}},
        {ProfileMetric::Text, {3, 9}},
        {ProfileMetric::Date, {5, 6, 8}},
        {ProfileMetric::MinLength, {1, 7}},
        {ProfileMetric::MinLengthNonEmpty, {0, 9}},
        {ProfileMetric::MaxLength, {5, 6, 8}},
        {ProfileMetric::MinNumber, {2}},
        {ProfileMetric::MaxNumber, {0, 4}},
        {ProfileMetric::Negative, {2}},
        {ProfileMetric::MinDate, {6}},
        {ProfileMetric::MaxDate, {5, 8}},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(static_cast<int>(each.metric));
        EXPECT_EQ(profile.rowsOf(each.metric), each.rows);
        EXPECT_EQ(profile.rowsOf(each.metric, 1), each.rows.mid(0, 1));
    }
    EXPECT_EQ(profile.rowsOf(QDate(2020, 1, 5)), (QVector<int>{5, 8}));
    EXPECT_EQ(profile.rowsOf(QDate(2020, 1, 4)), QVector<int>());
    EXPECT_EQ(profile.rowsOf(QDate()), QVector<int>());
}

TEST(ColumnProfile, ReadsOnlyTheRowsOfASample)
{
    const Dataset dataset = column({"1", "x", "2", "x", "3", ""});
    ColumnProfile profile;
    dataset.columnProfile(profile, first, {1, 2, 5}, {}, true);
    EXPECT_EQ(profile.m_numeric, 1);
    EXPECT_EQ(profile.m_text, 1);
    EXPECT_EQ(profile.m_empty, 1);
    EXPECT_EQ(profile.m_values.unique(), 3);
    EXPECT_EQ(profile.rowsOf(ProfileMetric::Numeric), (QVector<int>{2}));
    EXPECT_EQ(profile.m_numbers.sum(), 2);
    EXPECT_EQ(evenRows(10, 4), (QVector<int>{0, 2, 5, 7}));
    EXPECT_EQ(evenRows(3, 10), (QVector<int>{0, 1, 2}));
    EXPECT_EQ(evenRows(0, 10), QVector<int>());
    EXPECT_EQ(evenRows(2000000000, 3).constLast(), 1333333333);
}

TEST(ColumnProfile, NamesTheDaysThatAreMissing)
{
    const ColumnProfile profile = profileOf(
        {"2020-03-02", "2020-02-27", "2020-03-02", "2020-02-28", "x", "2020-03-04"}, isoDates);
    EXPECT_EQ(profile.m_distinctDates, 4);
    EXPECT_EQ(profile.missingDateCount(), 3);
    EXPECT_EQ(profile.missingDates(9), (QList<QDate>{{2020, 2, 29}, {2020, 3, 1}, {2020, 3, 3}}));
    EXPECT_EQ(profile.missingDates(2), (QList<QDate>{{2020, 2, 29}, {2020, 3, 1}}));
    EXPECT_EQ(explored(ProfileLine::RangeDate, profile), "7 days");
    EXPECT_EQ(explored(ProfileLine::MinDate, profile), "2020-02-27");

    const CellColumn none;
    EXPECT_TRUE(profileTip(ProfileLine::MissingDates, profile, none, false)
                    .endsWith("\nExample(s):\n2020-02-29\n2020-03-01\n2020-03-03"));
    EXPECT_TRUE(profileTip(ProfileLine::MissingDates, profile, none, true)
                    .endsWith("\nMissing dates are not shown when rows are sampled."));
    const ColumnProfile wide = profileOf({"2020-01-01", "2020-01-10"}, isoDates);
    EXPECT_TRUE(profileTip(ProfileLine::MissingDates, wide, none, false).endsWith("\n2020-01-06\n+3 more"));

    // Five millennia between two dates cost no more than the days that are asked for.
    const ColumnProfile far = profileOf({"0001-01-01", "9999-12-31"}, isoDates);
    EXPECT_EQ(far.missingDates(1), (QList<QDate>{{1, 1, 2}}));
    EXPECT_EQ(explored(ProfileLine::MissingDates, far), "3,652,057");

    const ColumnProfile without = profileOf({"2020-01-01"});
    EXPECT_EQ(without.m_text, 1);
    EXPECT_EQ(explored(ProfileLine::Date, without), "0");
    EXPECT_EQ(explored(ProfileLine::MaxDate, without), "");
    EXPECT_EQ(without.missingDates(5), QList<QDate>());
}

TEST(ColumnProfile, LeavesUndefinedFiguresEmpty)
{
    const struct
    {
        const char *sentence;
        QStringList cells;
        ProfileLine line;
        const char *text;
    } cases[] = {
        {"no rows have no length", {}, ProfileLine::MinLength, ""},
        {"empty cells have one", {""}, ProfileLine::MaxLength, "0"},
        {"but none without empties", {""}, ProfileLine::AverageLengthNonEmpty, ""},
        {"lengths are characters", {QString::fromUtf8("h\xc3\xa9"), ""}, ProfileLine::AverageLength, "1"},
        {"no numbers have no range", {"x"}, ProfileLine::RangeNumber, ""},
        {"range of numbers", {"-1", "1,000"}, ProfileLine::RangeNumber, "1,001"},
        {"one number doesn't spread", {"1"}, ProfileLine::StandardDeviation, ""},
        {"nor is it skewed", {"1", "1"}, ProfileLine::Skew, ""},
        {"the middle is in neither half", {"1", "2", "3", "4", "5"}, ProfileLine::LowerQuartile, "1.5"},
        {"ties of the mode are joined", {"1", "1", "2", "2", "3"}, ProfileLine::Mode, "1,2"},
        {"and cut", {"1", "2", "3", "4", "5", "6", "7"}, ProfileLine::Mode, "1,2,3,4,5 + 2 more"},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.sentence);
        EXPECT_EQ(explored(each.line, profileOf(each.cells)), each.text);
    }
}

TEST(ColumnProfile, ListsTheLinesInTheirOrder)
{
    QStringList labels;
    for (ProfileLine line : exploredLines(true)) {
        labels.append(profileLabel(line));
        EXPECT_FALSE(profileMeaning(line).isEmpty());
    }
    EXPECT_EQ(labels.mid(0, 13).join('|'),
        "Empty values|Non-empty values|Numeric values|Integer values|Real values|Boolean values|Text values|"
        "Date values|Distinct values|Unique values|Duplicated values|Min length inc empty|Min length ex empty");
    EXPECT_EQ(labels.mid(13).join('|'),
        "Max length|Average length inc empty|Average length ex empty|Min numeric|Max numeric|Range numeric|"
        "Negative numeric|Zero numeric|Positive numeric|Sum numeric|Average numeric|Median numeric|Mode numeric|"
        "Stddev numeric|Variance numeric|Q1 numeric|Q3 numeric|IQR numeric|Skew numeric|Format date|Min date|"
        "Max date|Range date|Distinct dates|Missing dates");
    EXPECT_EQ(exploredLines(false).size(), labels.size() - 10);
}

TEST(ColumnProfile, ShowsExamplesInTips)
{
    const Dataset dataset = column({"b", "", "a", "b", "b"});
    ColumnProfile profile;
    dataset.columnProfile(profile, first, {}, false);
    EXPECT_EQ(profileTip(ProfileLine::MinLengthNonEmpty, profile, dataset.column(first), false),
        "The length of the shortest value that is not empty.\nExample(s):\nrow 1: 'b'\nrow 3: 'a'\nrow 4: 'b'\n"
        "row 5: 'b'\nDouble click to drilldown.");
    EXPECT_EQ(profileTip(ProfileLine::Numeric, profile, dataset.column(first), false),
        "The number of values in the column that can be interpreted as numbers.");
    EXPECT_EQ(valueTip(profile.m_values, 0, dataset.column(first)),
        "'b' occurs 3 times\nExample(s):\nrow 1: 'b'\nrow 4: 'b'\nrow 5: 'b'\nDouble click to drilldown.");
}

TEST(ValueFrequencies, CutsTheTableAndSumsUpTheRest)
{
    using Order = ValueFrequencies::Order;
    const QStringList cells{"b", "a", "b", "", "c", "B", "b ", ""};
    const struct
    {
        const char *sentence;
        Order order;
        int limit;
        QStringList lines;
    } cases[] = {
        {"most frequent first, ties by first row", Order::MostFrequent, 9,
            {"b=2", "(empty)=2", "a=1", "c=1", "B=1", "b =1"}},
        {"least frequent first", Order::LeastFrequent, 9, {"a=1", "c=1", "B=1", "b =1", "b=2", "(empty)=2"}},
        {"several are cut", Order::MostFrequent, 2, {"b=2", "(empty)=2", "(4 other values)=4"}},
        {"one is cut", Order::LeastFrequent, 5, {"a=1", "c=1", "B=1", "b =1", "b=2", "(1 other value)=2"}},
        {"all are cut", Order::MostFrequent, 0, {"(6 other values)=8"}},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.sentence);
        EXPECT_EQ(tableOf(cells, each.order, each.limit), each.lines);
    }
    EXPECT_EQ(tableOf({}, Order::MostFrequent, 5), QStringList());
}

TEST(ValueFrequencies, CountsAsOneWouldByHand)
{
    RandomText random(5);
    QStringList cells;
    for (int i = 0; i < 3000; ++i) {
        cells.append(QString::number(random.below(700)));
    }
    QMap<QString, QVector<int>> rowsByText;
    for (int row = 0; row < cells.size(); ++row) {
        rowsByText[cells.at(row)].append(row);
    }
    const Dataset dataset = column(cells);
    const ValueFrequencies values(dataset.column(first));
    ASSERT_EQ(values.distinct(), rowsByText.size());
    for (int value = 0; value < values.distinct(); ++value) {
        const QVector<int> &rows = rowsByText[cells.at(values.firstRow(value))];
        EXPECT_EQ(values.count(value), rows.size());
        EXPECT_EQ(values.rowsOf(value), rows);
    }
    EXPECT_EQ(values.unique() + values.duplicated(), values.distinct());
}

TEST(ColumnPreviews, ShowTheFirstValues)
{
    const struct
    {
        const char *sentence;
        Dataset dataset;
        int rowLimit;
        QStringList previews;
    } cases[] = {
        {"all rows", grid({"a|b", "1|x", "2|y"}), 2, {"( 1, 2 )", "( x, y )"}},
        {"more rows", grid({"a|b", "1|x", "2|y"}), 1,
            {QString("( 1, %1 )").arg(QChar(0x2026)), QString("( x, %1 )").arg(QChar(0x2026))}},
        {"a long text", grid({"a", "abcdefgh"}), 1, {QString("( abcd%1 )").arg(QChar(0x2026))}},
        {"no rows", grid({"a|b"}), 3, {"( No values )", "( No values )"}},
        {"no columns", Dataset(), 3, {}},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.sentence);
        EXPECT_EQ(each.dataset.columnPreviews(each.rowLimit, 5), each.previews);
    }
}
