#include "data/profilelines.h"

#include "data/cellcolumn.h"
#include "data/values.h"

namespace {

struct LineRow
{
    const char *label;
    const char *meaning;
    int metric; ///< a ProfileMetric, or -1 when no rows stand behind the line
};

/// In the order of ProfileLine.
constexpr LineRow lineRows[] = {
    {"Empty values", "The number of values in the column that are empty. Values with whitespace do not count as empty.",
        0},
    {"Non-empty values", "The number of values in the column that are not empty.", 1},
    {"Numeric values", "The number of values in the column that can be interpreted as numbers.", 2},
    {"Integer values", "The number of numeric values in the column without a fraction.", 3},
    {"Real values", "The number of numeric values in the column with a fraction.", 4},
    {"Boolean values", "The number of values in the column that are true or false.", 5},
    {"Text values", "The number of values in the column that cannot be interpreted as empty, numeric, boolean or date.",
        6},
    {"Date values", "The number of values in the column that can be interpreted as dates.", 7},
    {"Distinct values", "The number of different values in the column.", -1},
    {"Unique values", "The number of values that occur once in the column.", -1},
    {"Duplicated values", "The number of values that occur more than once in the column.", -1},
    {"Min length inc empty", "The length of the shortest value, empty values included.", 8},
    {"Min length ex empty", "The length of the shortest value that is not empty.", 9},
    {"Max length", "The length of the longest value.", 10},
    {"Average length inc empty", "The average length of the values, empty values included.", -1},
    {"Average length ex empty", "The average length of the values that are not empty.", -1},
    {"Min numeric", "The lowest numeric value.", 11},
    {"Max numeric", "The highest numeric value.", 12},
    {"Range numeric", "Max numeric - Min numeric.", -1},
    {"Negative numeric", "The number of numeric values below 0.", 14},
    {"Zero numeric", "The number of numeric values that are 0.", 15},
    {"Positive numeric", "The number of numeric values above 0.", 16},
    {"Sum numeric", "The sum of the numeric values.", -1},
    {"Average numeric", "The sum of the numeric values divided by their number.", -1},
    {"Median numeric", "The numeric value in the middle, or the average of the two in the middle.", -1},
    {"Mode numeric", "The numeric value or values that occur most often.", -1},
    {"Stddev numeric",
        "The standard deviation of the numeric values as a sample, equivalent to Excel function stddev.s.", -1},
    {"Variance numeric", "The square of the standard deviation.", -1},
    {"Q1 numeric", "The median of the lower half of the numeric values.", -1},
    {"Q3 numeric", "The median of the upper half of the numeric values.", -1},
    {"IQR numeric", "Q3 numeric - Q1 numeric.", -1},
    {"Skew numeric", "3 * (average - median) / standard deviation, the alternative Pearson mode skewness.", -1},
    {"Format date", "The date format that fits most of the first values.", -1},
    {"Min date", "The earliest date.", 17},
    {"Max date", "The latest date.", 18},
    {"Range date", "Max date - Min date + 1.", -1},
    {"Distinct dates", "The number of different dates.", -1},
    {"Missing dates", "The number of days between the earliest and the latest date that do not occur.", -1},
};

constexpr int shownExamples = 5;

const LineRow &rowOf(ProfileLine line)
{
    return lineRows[static_cast<int>(line)];
}

QString examplesOfRows(const QVector<int> &rows, const CellColumn &column)
{
    constexpr int shownLength = 100;
    QStringList lines;
    for (int row : rows) {
        lines.append(QStringLiteral("row %1: '%2'")
                         .arg(formatInteger(row + 1, true), ellipsized(column.at(row).text(), shownLength)));
    }
    return QStringLiteral("Example(s):\n") + lines.join(QLatin1Char('\n'));
}

QString missingDatesTip(const ColumnProfile &profile, bool isSample)
{
    if (isSample) {
        return QStringLiteral("\nMissing dates are not shown when rows are sampled.");
    }
    QStringList lines;
    for (const QDate &date : profile.missingDates(shownExamples)) {
        lines.append(dateText(date, profile.m_dateFormat));
    }
    if (lines.isEmpty()) {
        return QString();
    }
    QString text = QStringLiteral("\nExample(s):\n") + lines.join(QLatin1Char('\n'));
    const qint64 others = profile.missingDateCount() - lines.size();
    if (others > 0) {
        text += QStringLiteral("\n+%1 more").arg(formatInteger(others, true));
    }
    return text;
}

} // namespace

QVector<ProfileLine> exploredLines(bool withStatistics)
{
    QVector<ProfileLine> lines;
    for (int line = 0; line <= static_cast<int>(ProfileLine::MissingDates); ++line) {
        const auto each = static_cast<ProfileLine>(line);
        if (withStatistics || each < ProfileLine::Sum || each > ProfileLine::Skew) {
            lines.append(each);
        }
    }
    return lines;
}

QString profileLabel(ProfileLine line)
{
    return QString::fromLatin1(rowOf(line).label);
}

QString profileMeaning(ProfileLine line)
{
    return QString::fromLatin1(rowOf(line).meaning);
}

bool hasRows(ProfileLine line, ProfileMetric &metric)
{
    if (rowOf(line).metric < 0) {
        return false;
    }
    metric = static_cast<ProfileMetric>(rowOf(line).metric);
    return true;
}

QString profileTip(ProfileLine line, const ColumnProfile &profile, const CellColumn &column, bool isSample)
{
    QString tip = profileMeaning(line);
    ProfileMetric metric;
    if (line == ProfileLine::MissingDates) {
        tip += missingDatesTip(profile, isSample);
    } else if (hasRows(line, metric)) {
        const QVector<int> rows = profile.rowsOf(metric, shownExamples);
        if (!rows.isEmpty()) {
            tip += QLatin1Char('\n') + examplesOfRows(rows, column) + QStringLiteral("\nDouble click to drilldown.");
        }
    }
    return tip;
}

QString valueTip(const ValueFrequencies &values, int value, const CellColumn &column)
{
    constexpr int shownLength = 100;
    return QStringLiteral("'%1' occurs %2 times\n%3\nDouble click to drilldown.")
        .arg(ellipsized(column.at(values.firstRow(value)).text(), shownLength),
            formatInteger(values.count(value), true), examplesOfRows(values.rowsOf(value, shownExamples), column));
}
