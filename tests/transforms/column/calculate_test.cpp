#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "support/scopedsettings.h"
#include "transforms/column/calculateoperation.h"
#include "transforms/options/parameter.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <functional>
#include <gtest/gtest.h>

namespace {

/// Calculates with the constants `a` and `b`; dates are read as year-month-day or day/month/year.
TransformRun calculateConstants(const char *operation, const QString &a, const QString &b)
{
    const ScopedSettings settings;
    OptionSettings options{{"Operation", operation}, {"Type1", "Constant"}, {"Constant1", a}};
    if (CalculateOperation::at(CalculateOperation::texts().indexOf(operation)).values == 2) {
        options += OptionSettings{{"Type2", "Constant"}, {"Constant2", b}};
    }
    return runTransform("Calculate", options, {column("x")});
}

QString resultOf(const TransformRun &run)
{
    return run.result.value(RowIndex(0), run.result.lastColumn());
}

} // namespace

TEST(TransformCalculate, ListsItsOperationsInTheirOrder)
{
    const QStringList texts = CalculateOperation::texts();
    EXPECT_EQ(texts.size(), 52);
    for (int i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(static_cast<int>(CalculateOperation::at(i).op), i) << qPrintable(texts.at(i));
        const bool isArithmetic = i < 6;
        EXPECT_EQ(CalculateOperation::at(i).shortName(), isArithmetic ? texts.at(i).left(1) : texts.at(i));
    }
    EXPECT_EQ(CalculateOperation::keywords().mid(4, 3), (QStringList{"power", "modulus", "abs"}));
}

TEST(TransformCalculate, CalculatesWithTwoValues)
{
    struct
    {
        const char *what;
        const char *operation;
        QString a;
        QString b;
        QString result;
    } const cases[] = {
        {"decimals that no double has", "+ Add", "0.1", "0.2", "0.3"},
        {"blanks and currency symbols", "+ Add", " $1.50 ", "2", "3.5"},
        {"a sum too large", "* Multiply", "1e308", "100", "NaN"},
        {"negative", "- Subtract", "2", "5", "-3"},
        {"a third", "/ Divide", "1", "3", "0.333333333333333"},
        {"exact", "/ Divide", "10", "4", "2.5"},
        {"to zero", "/ Divide", "10", "0.00", "Error: divide by 0"},
        {"a root", "^ Power", "2", "0.5", "1.4142135623731"},
        {"no real number", "^ Power", "-8", "0.5", "NaN"},
        {"the sign of the first", "% Modulus", "7", "-2", "1"},
        {"the sign of the first, negative", "% Modulus", "-7", "2", "-1"},
        {"no integer", "% Modulus", "7.5", "2", "Error: integer expected"},
        {"zeros behind the point", "% Modulus", "7.00", "2", "1"},
        {"by nothing", "% Modulus", "7", "0", "Error: invalid operation"},
        {"the quotient that 32 bits can't hold", "% Modulus", "-2147483648", "-1", "0"},
        {"a dividend of more than 32 bits", "% Modulus", "2147483648", "5", "Error: integer expected"},
        {"a currency symbol is no integer", "% Modulus", "$7", "2", "Error: integer expected"},
        {"bits", "AndBitwise", "12", "10", "8"},
        {"bits of either", "OrBitwise", "12", "10", "14"},
        {"bits of one", "XorBitwise", "12", "-10", "-6"},
        {"the larger", "Maximum", "2", "10", "10"},
        {"the smaller", "Minimum", "2", "10.50", "2"},
        {"numbers are written anew", "Minimum", "10.50", "20", "10.5"},
        {"no number", "+ Add", "x", "1", "Error: number expected"},
        {"infinity is text", "+ Add", "inf", "1", "Error: number expected"},
        {"nothing", "+ Add", "1", "", "Error: number expected"},
        {"numbers as booleans", "Or", "1", "false", "true"},
        {"in any case", "And", "TRUE ", "0.5", "true"},
        {"both", "Xor", "true", "1", "false"},
        {"no boolean", "Xor", "yes", "1", "Error: boolean expected"},
        {"where it stands", "IndexOf", "na", "banana", "3"},
        {"case counts", "IndexOf", "NA", "banana", ""},
        {"nothing stands at the start", "IndexOf", "", "ab", "1"},
        {"nothing in nothing", "IndexOf", "", "", "1"},
        {"the last one", "LastIndexOf", "na", "banana", "5"},
        {"nothing stands at the end", "LastIndexOf", "", "ab", "3"},
        {"not there", "LastIndexOf", "x", "ab", ""},
        {"overlapping", "Occurrences", "ana", "banana", "2"},
        {"none", "Occurrences", "x", "banana", "0"},
        {"of nothing", "Occurrences", "", "banana", ""},
        {"edits", "LevDistance", "kitten", "Sitting", "3"},
        {"edits of units, without trimming", "LevDistance", " a", "a", "1"},
        {"nothing in common", "LevDistance", "abc", "", "3"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(resultOf(calculateConstants(c.operation, c.a, c.b)), c.result);
    }
}

TEST(TransformCalculate, CalculatesWithOneValue)
{
    struct
    {
        const char *what;
        const char *operation;
        QString a;
        QString result;
    } const cases[] = {
        {"magnitude of the lowest integer", "Abs", "-9223372036854775808", "9223372036854775808"},
        {"magnitude of a decimal", "Abs", "-1.50", "1.5"},
        {"up", "Ceiling", "-1.5", "-1"},
        {"up to nothing, without sign", "Ceiling", "-0.5", "0"},
        {"up, beyond 64 bits", "Ceiling", "1e20", "100000000000000000000"},
        {"a whole number stays", "Ceiling", "9007199254740993", "9007199254740993"},
        {"down", "Floor", "-1.5", "-2"},
        {"half up", "Round", "1.5", "2"},
        {"half up below nothing", "Round", "-2.5", "-2"},
        {"a large half", "Round", "1234567.50", "1234568"},
        {"more than 32 bits", "Round", "3000000000.5", "3000000001"},
        {"zeros behind the point", "Round", "12.00", "12"},
        {"sign", "Sign", "-0.1", "-1"},
        {"sign of nothing", "Sign", "0.0", "0"},
        {"sign of a whole number", "Sign", "12", "1"},
        {"the end of 64 bits", "Increment", "9223372036854775807", "9223372036854775808"},
        {"from below", "Increment", "-1", "0"},
        {"below", "Increment", "-2", "-1"},
        {"a decimal", "Increment", "0.1", "1.1"},
        {"currency", "Increment", "$5", "6"},
        {"the other end of 64 bits", "Decrement", "-9223372036854775808", "-9223372036854775809"},
        {"from nothing", "Decrement", "0", "-1"},
        {"a decimal less", "Decrement", "0.25", "-0.75"},
        {"no number", "Decrement", "x", "Error: number expected"},
        {"decimal logarithm", "Log10", "1000", "3"},
        {"binary logarithm", "Log2", "0.5", "-1"},
        {"natural logarithm", "Ln", "1.00", "0"},
        {"of nothing", "Log10", "0", "Error: >0 expected"},
        {"of less", "Ln", "-0.5", "Error: >0 expected"},
        {"characters, not bytes", "Length", "é😀", "3"},
        {"of nothing", "Length", "", "0"},
        {"hyphens part words", "WordCount", "a-b c", "3"},
        {"so do apostrophes", "WordCount", "don't stop", "3"},
        {"no words", "WordCount", " ., ", "0"},
        {"symbols are words", "WordCount", "$ + é", "3"},
        {"a duration", "TimeToMSecs", "01:02:03.5", "3723500"},
        {"many hours", "TimeToMSecs", "100:00", "360000000"},
        {"all hours of 32 bits", "TimeToMSecs", "2147483647:59:59.999", "7730941132799999"},
        {"too many hours", "TimeToMSecs", "2147483648:00", "Error: h:m:s(.z) time expected"},
        {"too many minutes", "TimeToMSecs", "1:60:00", "Error: h:m:s(.z) time expected"},
        {"a fraction that is rounded to a second", "TimeToMSecs", "1:00:00.9996", "Error: h:m:s(.z) time expected"},
        {"a fraction that is none", "TimeToMSecs", "1:00:00.5e3", "Error: h:m:s(.z) time expected"},
        {"two points", "TimeToMSecs", "1:00:00.1.2", "Error: h:m:s(.z) time expected"},
        {"minutes have no fraction", "TimeToMSecs", "1:30.5", "Error: h:m:s(.z) time expected"},
        {"hours only", "TimeToMSecs", "12", "Error: h:m:s(.z) time expected"},
        {"before midnight", "TimeToMSecs", "-1:00", "Error: h:m:s(.z) time expected"},
        {"milliseconds", "MSecsToTime", "3723500", "01:02:03.500"},
        {"more than a day", "MSecsToTime", "90000000", "25:00:00"},
        {"the most", "MSecsToTime", "1000000000000000", "277777777:46:40"},
        {"too many", "MSecsToTime", "1000000000000001", "Error: integer out of expected range"},
        {"less than nothing", "MSecsToTime", "-1", "Error: integer out of expected range"},
        {"no whole number", "MSecsToTime", "1.5", "Error: integer expected"},
        {"a Julian day", "JulianDayToDate", "2460370", "2024-02-29"},
        {"before the years of ISO dates", "JulianDayToDate", "0", "Error: Date out of range"},
        {"beyond all days", "JulianDayToDate", "9223372036854775807", "Error: Julian days expected"},
        {"no day", "JulianDayToDate", "x", "Error: integer expected"},
        {"a date is no number", "Abs", "29/2/2024", "Error: invalid operation"},
        {"the next day", "Increment", "29/2/2024", "1/3/2024"},
        {"the day before", "Decrement", "1/3/2024", "29/2/2024"},
        {"Julian day", "DateToJulianDay", "29/2/2024", "2460370"},
        {"a leap month", "DaysInMonth", "1/2/2024", "29"},
        {"a year without", "DaysInYear", "1/2/2023", "365"},
        {"Thursday", "DayOfWeek", "29/2/2024", "4"},
        {"day", "DayOfMonth", "29/2/2024", "29"},
        {"day of the year", "DayOfYear", "29/2/2024", "60"},
        {"month", "Month", "29/2/2024", "2"},
        {"year", "Year", "29/2/2024", "2024"},
        {"the third quarter", "Quarter", "30/9/2024", "3"},
        {"a week of the year before", "WeekOfYear", "1/1/2021", "2020,53"},
        {"a single-digit week", "WeekOfYear", "30/12/2024", "2025,01"},
        {"a day that doesn't exist", "Month", "30/2/2024", "Error: date expected"},
        {"a number is no date", "Quarter", "4", "Error: date expected"},
    };
    const ScopedLocale british("en_GB");
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(resultOf(calculateConstants(c.operation, c.a, QString())), c.result);
    }
}

TEST(TransformCalculate, CalculatesWithDatesAndTimes)
{
    const QString now = "2024-01-31T10:20:30.005";
    struct
    {
        const char *what;
        const char *operation;
        QString a;
        QString b;
        QString result;
    } const cases[] = {
        {"milliseconds", "DateTimeAddMSecs", now, "-5", "2024-01-31T10:20:30.000"},
        {"seconds", "DateTimeAddSecs", now, "30", "2024-01-31T10:21:00.005"},
        {"hours", "DateTimeAddHours", now, "24.00", "2024-02-01T10:20:30.005"},
        {"days", "DateTimeAddDays", " " + now, "29", "2024-02-29T10:20:30.005"},
        {"months end earlier", "DateTimeAddMonths", now, "1", "2024-02-29T10:20:30.005"},
        {"years back", "DateTimeAddYears", now, "-24", "2000-01-31T10:20:30.005"},
        {"a zone stays", "DateTimeAddSecs", "2024-01-31T10:20:30Z", "1", "2024-01-31T10:20:31.000Z"},
        {"beyond the years of ISO dates", "DateTimeAddYears", now, "8000", "Error: Cannot convert datetime"},
        {"beyond 32 bits", "DateTimeAddMonths", now, "4294967297", "Error: Cannot convert datetime"},
        {"beyond all sums", "DateTimeAddHours", now, "9223372036854775807", "Error: Cannot convert datetime"},
        {"beyond all days", "DateTimeAddDays", now, "-9223372036854775808", "Error: Cannot convert datetime"},
        {"half a day", "DateTimeAddDays", now, "0.5", "Error: integer expected"},
        {"no date", "DateTimeAddDays", "x", "y", "Error: ISO datetime expected"},
        {"since 1970", "DateTimeToMSecs", "1970-01-02T00:00:00Z", "", "86400000"},
        {"to universal time", "DateTimeToUTC", "2024-01-01T00:30:00+01:00", "", "2023-12-31T23:30:00.000Z"},
        {"out of the years", "DateTimeToUTC", "9999-12-31T23:30:00-01:00", "", "Error: ISO datetime expected"},
        {"beyond all milliseconds", "MSecsToDateTime", "9223372036854775807", "", "Error: msecs since epoch expected"},
        {"no number", "MSecsToDateTime", "x", "", "Error: integer expected"},
        {"days added", "+ Add", "31/12/2023", "60", "29/2/2024"},
        {"all days of 32 bits", "- Subtract", "31/12/2023", "2147483648", "Error: integer expected"},
        {"days taken away", "- Subtract", "1/3/2024", "1.0", "29/2/2024"},
        {"days between, in formats of their own", "- Subtract", "29/2/2024", "2024-3-1", "-1"},
        {"the later date, in the format of the first", "Maximum", "29/2/2024", "2024-3-1", "1/3/2024"},
        {"the earlier date", "Minimum", "29/2/2024", "2024-3-1", "29/2/2024"},
        {"two dates have no sum", "+ Add", "29/2/2024", "2024-3-1", "Error: invalid operation"},
        {"a date has no double", "* Multiply", "29/2/2024", "2", "Error: invalid operation"},
        {"a date is no boolean", "And", "29/2/2024", "2", "Error: invalid operation"},
        {"a number before a date", "+ Add", "2", "29/2/2024", "Error: number expected"},
    };
    const ScopedLocale british("en_GB");
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(resultOf(calculateConstants(c.operation, c.a, c.b)), c.result);
    }
    const QString epoch = QDateTime::fromMSecsSinceEpoch(-1).toString(Qt::ISODateWithMs);
    EXPECT_EQ(resultOf(calculateConstants("MSecsToDateTime", "-1", QString())), epoch);
}

TEST(TransformCalculate, TellsWhatIsWrong)
{
    struct
    {
        const char *what;
        const char *operation;
        const char *cells; ///< of columns A and B
        QStringList ofColumns;
        QStringList ofConstants;
    } const cases[] = {
        {"both values", "+ Add", "x|%1",
            {"'x' is not a valid value for this operation in column 'A' at row 1",
                "'%1' is not a valid value for this operation in column 'B' at row 1"},
            {"'x' is not a valid value for this operation at row 1",
                "'%1' is not a valid value for this operation at row 1"}},
        {"booleans", "And", "x|1", {"'x' is not a valid value for this operation in column 'A' at row 1"},
            {"'x' is not a valid value for this operation at row 1"}},
        {"the divisor", "/ Divide", "1|0", {"Divide by 0 in column 'B' at row 1"}, {"Divide by 0 at row 1"}},
        {"the modulus", "% Modulus", "1|0", {"Modulus by 0 in column 'B' at row 1"}, {"Modulus by 0 at row 1"}},
        {"integers", "XorBitwise", "1|1.5", {"'1.5' is not an integer in column 'B' at row 1"},
            {"'1.5' is not an integer at row 1"}},
        {"a number", "Round", "x|", {"'x' is not a number in column 'A' at row 1"}, {"'x' is not a number at row 1"}},
        {"a logarithm", "Ln", "-1|", {"'-1' <= 0 in column 'A' at row 1"}, {"'-1' <= 0 at row 1"}},
        {"a date", "Year", "x|", {"'x' is not a valid date in column 'A' at row 1"},
            {"'x' is not a valid date at row 1"}},
        {"a date as a number", "Sign", "2024-1-2|", {"Operation not valid on date '2024-1-2' in column 'A' at row 1"},
            {"Operation not valid on date '2024-1-2' at row 1"}},
        {"a date and a number", "/ Divide", "2024-1-2|0", {"Operation not valid on a date in column 'A' at row 1"},
            {"Operation not valid on a date at row 1"}},
        {"two dates", "/ Divide", "2024-1-2|2024-1-3", {"Operation not valid on 2 dates at row 1"},
            {"Operation not valid on 2 dates at row 1"}},
        {"a date and time", "DateTimeAddDays", "x|1", {"'x' is not a valid ISO datetime in column 'A' at row 1"},
            {"'x' is not a valid ISO datetime at row 1"}},
        {"a sum", "DateTimeAddDays", "2024-01-02T00:00:00|9999999",
            {"Cannot add '9999999' day(s) to datetime '2024-01-02T00:00:00' at row 1"},
            {"Cannot add '9999999' day(s) to datetime '2024-01-02T00:00:00' at row 1"}},
        {"milliseconds of what", "MSecsToDateTime", "x|",
            {"'x' is not a valid integer value for msecs in column 'A' at row 1"},
            {"'x' is not a valid integer value for msecs at row 1"}},
        {"milliseconds beyond", "MSecsToDateTime", "999999999999999999|",
            {"'999999999999999999' is not valid msecs since epoch in column 'A' at row 1"},
            {"'999999999999999999' is not valid msecs since epoch at row 1"}},
        {"a duration", "TimeToMSecs", "x|", {"'x' is not a valid time in column 'A' at row 1"},
            {"'x' is not a valid time at row 1"}},
        {"milliseconds", "MSecsToTime", "x|", {"'x' integer msecs expected in column 'A' at row 1"},
            {"'x' integer msecs expected at row 1"}},
        {"their range", "MSecsToTime", "-1|", {"'-1' msecs out of range in column 'A' at row 1"},
            {"'-1' msecs out of range at row 1"}},
        {"a number of a day", "JulianDayToDate", "x|",
            {"'x' is not a valid integer expected for msecs in column 'A' at row 1"},
            {"'x' is not a valid integer expected for msecs at row 1"}},
        {"a Julian day", "JulianDayToDate", "999999999999999|",
            {"'999999999999999' is not a valid Julian day in column 'A' at row 1"},
            {"'999999999999999' is not a valid Julian day at row 1"}},
        {"a day without ISO form", "JulianDayToDate", "0|",
            {"'0' is out of range to represent a Julian day as an ISO date in column 'A' at row 1"},
            {"'0' is out of range to represent a Julian day as an ISO date at row 1"}},
    };
    const ScopedSettings settings;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const QStringList cells = QString(c.cells).split('|');
        OptionSettings options{{"Operation", c.operation}, {"Column1", "A"}, {"Column2", "B"}};
        const TransformRun columns = runTransform("Calculate", options, {grid({"A|B", c.cells})});
        EXPECT_EQ(columns.warnings(), c.ofColumns + QStringList{""});
        EXPECT_EQ(columns.resultText(), "0 calculations succeeded, 1 failed");
        const TransformRun constants = calculateConstants(c.operation, cells.at(0), cells.at(1));
        EXPECT_EQ(constants.warnings().mid(0, c.ofConstants.size() + 1), c.ofConstants + QStringList{""});
        EXPECT_TRUE(resultOf(constants).startsWith("Error: ")) << resultOf(constants).toStdString();
    }
}

TEST(TransformCalculate, ListsFiveFailuresAndCountsTheOthers)
{
    const Dataset input = grid({"A|B", "1|x", "y|z", "2|3", "u|1", "v|1", "w|1", "|1"});
    const OptionSettings options{{"Column1", "A"}, {"Column2", "B"}};
    const TransformRun run = runTransform("Calculate", options, {input});
    EXPECT_EQ(run.result.columnValues(ColumnIndex(2)).count("Error: number expected"), 6);
    EXPECT_EQ(run.resultText(), "1 calculations succeeded, 6 failed");
    ASSERT_EQ(run.warnings().size(), 7);
    EXPECT_EQ(run.warnings().at(4), "'v' is not a valid value for this operation in column 'A' at row 5");
    EXPECT_EQ(run.warnings().mid(5), (QStringList{"+ 2 others", ""}));
    const TransformRun fewer = runTransform("Calculate", options, {input.withRows({0, 1, 2, 3, 4, 5})});
    EXPECT_EQ(fewer.warnings().mid(5), (QStringList{"+ 1 other", ""}));
}

TEST(TransformCalculate, DecidesByTheColumnWhatIsADate)
{
    const ScopedLocale british("en_GB");
    const ScopedSettings settings;
    const Dataset input = grid({"From|To", "1/2/2024|2024-3-1", "|2024-2-1", "29/2/2024|2024-2-28"});
    const OptionSettings columns{{"Column1", "From"}, {"Column2", "To"}, {"Operation", "- Subtract"}};
    const TransformRun run = runTransform("Calculate", columns, {input});
    EXPECT_EQ(run.result.columnValues(ColumnIndex(2)), (QStringList{"-29", "Error: date expected", "1"}));
    EXPECT_EQ(run.warnings(), (QStringList{"'' is not a valid date in column 'From' at row 2", ""}));
    const OptionSettings days{{"Column1", "From"}, {"Type2", "Constant"}, {"Constant2", "30"}};
    EXPECT_EQ(runOn("Calculate", days, input).columnValues(ColumnIndex(2)),
        (QStringList{"2/3/2024", "Error: date expected", "30/3/2024"}));
}

TEST(TransformCalculate, NamesTheNewColumn)
{
    const Dataset input = grid({"Price|", "2|3"});
    struct
    {
        const char *what;
        OptionSettings options;
        QStringList header;
    } const cases[] = {
        {"a sign between, a number for a missing name", {{"Operation", "* Multiply"}, {"Column1", 1}, {"Column2", 2}},
            {"Price", "2", "Price*2"}},
        {"a function of two", {{"Operation", "Maximum"}, {"Column1", 1}, {"Type2", "Constant"}, {"Constant2", " 7 "}},
            {"Price", "2", "Maximum(Price,7)"}},
        {"a function of one", {{"Operation", "Abs"}, {"Column1", 1}}, {"Price", "2", "Abs(Price)"}},
        {"a name of one's own", {{"Operation", "Abs"}, {"Column1", 1}, {"Auto_New_Name", false}, {"New_Name", "n"}},
            {"Price", "2", "n"}},
        {"no column", {{"Operation", "Abs"}}, {"Price", "", ""}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(runOn("Calculate", c.options, input).header(), c.header);
    }
    EXPECT_EQ(runOn("Calculate", {{"Operation", "Abs"}, {"Column1", 1}}, plainGrid({"5"})).header(),
        (QStringList{"1", "Abs(1)"}));
}

TEST(TransformCalculate, LeavesTheColumnEmptyWithoutAValue)
{
    const TransformRun run = runTransform("Calculate", {{"Column2", "B"}}, {grid({"A|B", "1|2", "3|4"})});
    EXPECT_EQ(rows(run.result), (QStringList{"1|2|", "3|4|"}));
    EXPECT_EQ(run.resultText(), "0 calculations succeeded, 2 failed");
    EXPECT_EQ(run.warnings(), QStringList{"1 option not set ('Value 1')"});
}

TEST(TransformCalculate, OffersTheOptionsThatApply)
{
    TransformRun run = runTransform("Calculate", {}, {grid({"A|B", "1|2"})});
    const auto active = [&run] {
        QStringList keys;
        for (const auto &state : run.transform->parameterStates()) {
            if (state.second) {
                keys.append(state.first);
            }
        }
        return keys;
    };
    EXPECT_EQ(active(), (QStringList{"Column1", "Type2", "Column2"}));
    EXPECT_EQ(run.transform->parameter("Column1")->toolTip(), "Set the first value as a column.");
    EXPECT_EQ(run.transform->parameter("Constant2")->toolTip(), "Set the second value as a constant.");
    setOption(*run.transform, "Operation", "Abs");
    setOption(*run.transform, "Type1", "Constant");
    setOption(*run.transform, "Auto_New_Name", false);
    EXPECT_EQ(active(), (QStringList{"New_Name", "Constant1"}));
    EXPECT_EQ(run.transform->parameter("Type1")->toolTip(), "Select whether the value is a column or a constant.");
}

TEST(TransformCalculate, FollowsTheLocale)
{
    const ScopedLocale german("de_DE");
    EXPECT_EQ(resultOf(calculateConstants("+ Add", "1.000,5", "1")), "1001,5");
    EXPECT_EQ(resultOf(calculateConstants("Increment", "12,00", QString())), "13");
    const ScopedLocale arabic("ar_EG");
    const QString sum = resultOf(calculateConstants("Decrement", QLocale().toString(1), QString()));
    EXPECT_EQ(sum, QLocale().toString(0));
    EXPECT_EQ(resultOf(calculateConstants("Abs", QLocale().toString(-5), QString())), QLocale().toString(5));
}

TEST(TransformCalculate, CountsTimeAsTheLibraryDoes)
{
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", "Europe/Berlin"); // clocks are changed twice a year
    QRandomGenerator random(11);
    QStringList lines{"ms|iso|number"};
    for (int i = 0; i < 3000; ++i) {
        // Three in four lie within hours of a change of the clocks, and some are written in universal time.
        const qint64 change = i % 2 ? 1711846800000 : 1729990800000;
        const qint64 msecs = i % 4 ? change + random.bounded(259200000) - 129600000
                                   : qint64(random.bounded(4e12)) - qint64(2e12);
        // Written as clocks that are never changed show it, so that some local times don't exist.
        const QDateTime dateTime = QDateTime::fromMSecsSinceEpoch(msecs, Qt::UTC);
        const QString iso = dateTime.toString(i % 3 ? Qt::ISODateWithMs : Qt::ISODate);
        if (iso.startsWith("2024-10-27T02")) {
            continue; // which of the two hours is meant, the C library decides by its last call
        }
        lines.append(
            QStringLiteral("%1|%2|%3")
                .arg(QString::number(msecs), i % 5 ? iso.chopped(1) : iso, QString::number(random.bounded(-400, 400))));
    }
    const Dataset input = grid(lines);
    struct
    {
        const char *operation;
        std::function<QDateTime(const QDateTime &, int)> sum;
    } const sums[] = {
        {"DateTimeAddMSecs", [](const QDateTime &time, int n) { return time.addMSecs(n); }},
        {"DateTimeAddSecs", [](const QDateTime &time, int n) { return time.addSecs(n); }},
        {"DateTimeAddHours", [](const QDateTime &time, int n) { return time.addSecs(n * 3600); }},
        {"DateTimeAddDays", [](const QDateTime &time, int n) { return time.addDays(n); }},
        {"DateTimeAddMonths", [](const QDateTime &time, int n) { return time.addMonths(n); }},
        {"DateTimeAddYears", [](const QDateTime &time, int n) { return time.addYears(n); }},
        {"DateTimeToUTC", [](const QDateTime &time, int) { return time.toUTC(); }},
    };
    for (const auto &c : sums) {
        SCOPED_TRACE(c.operation);
        const Dataset result = runOn("Calculate", {{"Operation", c.operation}, {"Column1", 2}, {"Column2", 3}}, input);
        for (int row = 0; row < input.rowCount(); ++row) {
            const QStringList cells = result.row(RowIndex(row));
            const QDateTime start = QDateTime::fromString(cells.at(1), Qt::ISODateWithMs);
            const QString text = c.sum(start, cells.at(2).toInt()).toString(Qt::ISODateWithMs);
            const QString expected = !start.isValid() ? "Error: ISO datetime expected"
                                     : text.isEmpty() ? "Error: Cannot convert datetime"
                                                      : text;
            ASSERT_EQ(cells.at(3), expected) << cells.join(' ').toStdString();
        }
    }
    const Dataset shown = runOn("Calculate", {{"Operation", "MSecsToDateTime"}, {"Column1", 1}}, input);
    const Dataset counted = runOn("Calculate", {{"Operation", "DateTimeToMSecs"}, {"Column1", 2}}, input);
    for (int row = 0; row < input.rowCount(); ++row) {
        const QDateTime time = QDateTime::fromMSecsSinceEpoch(shown.value(RowIndex(row), ColumnIndex(0)).toLongLong());
        ASSERT_EQ(shown.value(RowIndex(row), ColumnIndex(3)), time.toString(Qt::ISODateWithMs));
        const QString iso = counted.value(RowIndex(row), ColumnIndex(1));
        const QDateTime dateTime = QDateTime::fromString(iso, Qt::ISODateWithMs);
        const QString epoch = QString::number(dateTime.toMSecsSinceEpoch());
        ASSERT_EQ(
            counted.value(RowIndex(row), ColumnIndex(3)), dateTime.isValid() ? epoch : "Error: ISO datetime expected")
            << iso.toStdString();
    }
    before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
}
