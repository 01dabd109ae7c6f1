#include "charts/chartsamples.h"
#include "settings/settings.h"

#include <gtest/gtest.h>

using namespace ChartChoice;

namespace {

/// Facets as lines: for each its series as "name: x,y x,y", its rings as "ring: label=value".
QStringList shown(const ChartModel &model)
{
    QStringList lines;
    for (const ChartFacet &facet : model.facets) {
        lines.append(facet.title);
        for (const ChartSeries &series : facet.series) {
            QStringList points;
            for (int i = 0; i < series.points.size(); ++i) {
                const QPointF point = series.points.at(i);
                QString text = QStringLiteral("%1,%2").arg(point.x()).arg(point.y());
                if (!series.base.isEmpty()) {
                    text += QStringLiteral("-%1").arg(series.base.at(i));
                }
                points.append(text);
            }
            lines.append(series.name + QStringLiteral(": ") + points.join(QLatin1Char(' ')));
        }
        for (const QVector<ChartSlice> &ring : facet.rings) {
            QStringList slices;
            for (const ChartSlice &slice : ring) {
                slices.append(QStringLiteral("%1=%2").arg(slice.label).arg(slice.value));
            }
            lines.append(QStringLiteral("ring: ") + slices.join(QLatin1Char(' ')));
        }
    }
    return lines;
}

QStringList manyRows(int count)
{
    QStringList lines{QStringLiteral("x|y")};
    for (int i = 0; i < count; ++i) {
        lines.append(QStringLiteral("%1|%2").arg(i).arg(i % 7));
    }
    return lines;
}

QStringList manyColumns(int count)
{
    QStringList names{QStringLiteral("x")};
    QStringList values{QStringLiteral("1")};
    for (int i = 0; i < count; ++i) {
        names.append(QStringLiteral("y%1").arg(i));
        values.append(QStringLiteral("2"));
    }
    return {names.join(QLatin1Char('|')), values.join(QLatin1Char('|'))};
}

} // namespace

TEST(ChartModel, PointsOfEachKindAndLayout)
{
    const QStringList two{QStringLiteral("x|a|b"), QStringLiteral("1|10|1"), QStringLiteral("2|20|2")};
    const QStringList texts{QStringLiteral("x|a|b"), QStringLiteral("p|10|1"), QStringLiteral("q|20|2")};
    const struct
    {
        const char *what;
        QStringList lines;
        int type;
        int layout;
        QStringList expected;
    } cases[] = {
        {"scatter of two columns", two, Scatter, Grouped, {"a / b vs x", "a: 1,10 2,20", "b: 1,1 2,2"}},
        {"line, one picture a column", two, Line, Faceted, {"a vs x", "a: 1,10 2,20", "b vs x", "b: 1,1 2,2"}},
        {"lines aren't stacked", two, SmoothLine, Stacked, {"a / b vs x", "a: 1,10 2,20", "b: 1,1 2,2"}},
        {"areas stand on zero", two, Area, Grouped, {"a / b vs x", "a: 1,10-0 2,20-0", "b: 1,1-0 2,2-0"}},
        {"areas stand on each other", two, Area, Stacked, {"a / b vs x", "a: 1,10-0 2,20-0", "b: 1,11-10 2,22-20"}},
        {"texts stand at whole numbers", texts, Line, Grouped, {"a / b vs x", "a: 0,10 1,20", "b: 0,1 1,2"}},
        {"bars stand at the places of texts, numbers too", two, VerticalBar, Stacked,
            {"a / b vs x", "a: 0,10 1,20", "b: 0,1 1,2"}},
        {"equal texts of bars are summed", {"x|a", "p|1", "q|2", "p|3", "|4"}, HorizontalBar, Grouped,
            {"a vs x", "a: 0,4 1,2 2,4"}},
        {"a pie of one column", {"x|a", "p|1", "|2"}, Pie, Grouped, {"a vs x", "ring: p=1 (empty)=2"}},
        {"a pie of two columns names them", texts, Pie, Grouped,
            {"a / b vs x", "ring: a / p=10 a / q=20 b / p=1 b / q=2"}},
        {"a donut has a ring a column", texts, Donut, Stacked,
            {"a / b vs x", "ring: a / p=10 a / q=20", "ring: b / p=1 b / q=2"}},
        {"pies side by side", texts, Pie, Faceted,
            {"a vs x", "ring: a / p=10 a / q=20", "b vs x", "ring: b / p=1 b / q=2"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(shown(ChartSample(c.lines, c.type, c.layout).model()), c.expected);
    }
}

TEST(ChartModel, Messages)
{
    const struct
    {
        const char *what;
        QStringList lines;
        int type;
        int layout;
        QString refusal;
        QStringList warnings;
        QStringList infos;
    } cases[] = {
        {"no type", {"x|y", "1|2"}, NoType, Grouped, "Select a chart type", {"Select a chart type"}, {}},
        {"no Y", {"x", "1"}, Line, Grouped, "Select one or more columns for the Y axis",
            {"Select one or more data columns for the Y axis"}, {}},
        {"no rows", {"x|y"}, Line, Grouped, "No data", {}, {}},
        {"10,000 points", manyRows(10000), Scatter, Grouped, "", {}, {"X axis interpreted as Numeric"}},
        {"10,001 points", manyRows(10001), SmoothLine, Grouped, "Too many data points",
            {"Smooth Line charts can display a maximum of 10,000 data points (per facet, if faceted) - you can use a "
             "'Sample', 'Filter' or 'Slice' transforms to reduce the amount of data"},
            {}},
        {"101 slices", manyRows(101), Pie, Grouped, "Too many data points",
            {"Pie charts can display a maximum of 100 data points (per facet, if faceted) - you can use a "
             "'Sample', 'Filter' or 'Slice' transforms to reduce the amount of data"},
            {}},
        {"11 facets, 2 across", manyColumns(11), Scatter, Faceted, "Too many rows of facets",
            {"A maximum of 5 rows of facets can be displayed", "Try increasing the number of facets across"}, {}},
        {"26 facets fit in no way", manyColumns(26), Scatter, Faceted, "Too many rows of facets",
            {"A maximum of 5 rows of facets can be displayed"}, {}},
        {"100 series", manyColumns(100), Scatter, Grouped, "", {}, {"X axis interpreted as Numeric"}},
        {"one point of a line", {"x|y", "1|2"}, Line, Grouped, "", {"1 data point for column 'y'"},
            {"X axis interpreted as Numeric"}},
        {"bad numbers are listed up to five", {"x|y", "1|a", "2|b", "3|nan", "4|inf", "5|1e999", "6|", "7|c", "8|8"},
            Scatter, Grouped, "",
            {"'a' is not a valid number in column 'y' at row 1", "'b' is not a valid number in column 'y' at row 2",
                "'nan' is not a valid number in column 'y' at row 3",
                "'inf' is not a valid number in column 'y' at row 4",
                "'1e999' is not a valid number in column 'y' at row 5", "+ 2 others"},
            {"X axis interpreted as Numeric"}},
        {"nothing to draw", {"x|y", "1|a"}, Scatter, Grouped, "",
            {"'a' is not a valid number in column 'y' at row 1", "No data points for column 'y'"},
            {"X axis interpreted as Numeric"}},
        {"out of order", {"x|y", "3|1", "1|2", "2|3"}, Line, Grouped, "",
            {"X values are not ordered in column 'x', use a 'Sort' transform to sort them"},
            {"X axis interpreted as Numeric"}},
        {"dates", {"x|y", "2024-01-31|1", "2024-02-29|2"}, Line, Grouped, "", {},
            {"X axis interpreted as Date", "'yyyy-M-d' inferred as date format for column 'x'"}},
        {"texts twice in a line", {"x|y", "a|1", "a|2", "b|3"}, Line, Grouped, "No data",
            {"Duplicate values are not allowed for an X axis of type text in Line charts\nYou can use a 'Count' "
             "transform to sum duplicates.",
                "X axis value 'a' occurs 2 times"},
            {"X axis interpreted as Text"}},
        {"texts twice in bars", {"x|y", "a|1", "a|2"}, VerticalBar, Grouped, "", {},
            {"Y values with the same X value are summed"}},
        {"negative slices", {"x|y", "a|-1", "b|2"}, Donut, Grouped, "",
            {"Donut charts are not a good choice for negative values (1 negative value)"}, {}},
        {"areas over each other", {"x|a|b", "1|1|1", "2|2|2"}, Area, Grouped, "",
            {"Data may be obscured in grouped Area charts - try stacked or faceted instead or set the series opacity "
             "to < 100%"},
            {"X axis interpreted as Numeric"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const ChartModel model = ChartSample(c.lines, c.type, c.layout).model();
        EXPECT_EQ(model.refusal, c.refusal);
        EXPECT_EQ(model.warnings, c.warnings);
        EXPECT_EQ(model.infos, c.infos);
        EXPECT_EQ(model.isDrawn(), c.refusal.isEmpty());
    }
}

TEST(ChartModel, ColumnsThatAreGoneAreNotDrawn)
{
    ChartSample sample({"x|a|b", "1|2|3", "2|3|4"}, Line);
    sample.data.setColumnId(ColumnIndex(1), ColumnId(9, 9));
    EXPECT_EQ(shown(sample.model()), (QStringList{"b vs x", "b: 1,3 2,4"}));
    sample.data.setColumnId(ColumnIndex(0), ColumnId(9, 8));
    EXPECT_EQ(sample.model().warnings, QStringList("Select a data column for the X axis"));
}

TEST(ChartModel, TitlesTakeTheNamesInOneWalk)
{
    ChartSample sample({"$(Y)|b", "1|2"}, Scatter);
    const struct
    {
        const char *what;
        int option;
        QString custom;
        QString expected;
    } cases[] = {
        {"automatic", AutomaticTitle, "unused", "b vs $(Y)"},
        {"a name that looks like a mark stays", CustomTitle, "<$(X)> of $(Y), $(Z)", "<$(Y)> of b, $(Z)"},
        {"hidden", HiddenTitle, "unused", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        sample.options.titleOption = c.option;
        sample.options.customTitle = c.custom;
        EXPECT_EQ(sample.model().facets.first().title, c.expected);
    }
}

TEST(ChartModel, AxesOfNumbers)
{
    const QStringList lines{"x|y", "1|3", "9|87"};
    const struct
    {
        const char *what;
        std::function<void(ChartAxisOptions &)> set;
        double minimum;
        double maximum;
        int ticks;
        QString format;
        QStringList warnings;
    } cases[] = {
        {"nice whole numbers", [](ChartAxisOptions &) {}, 0, 100, 6, "%.2i", {}},
        {"as the data are", [](ChartAxisOptions &a) { a.niceValues = false; }, 3, 87, 6, "", {}},
        {"own bounds",
            [](ChartAxisOptions &a) {
                a.niceValues = false;
                a.customMinimum = a.customMaximum = true;
                a.minimum = -0.5;
                a.maximum = 10;
                a.labelFormat = 6;
            },
            -0.5, 10, 6, "%.2i", {"Label format '%.2i' may truncate Y axis values."}},
        {"bounds in the wrong order are left aside",
            [](ChartAxisOptions &a) {
                a.customMinimum = a.customMaximum = true;
                a.minimum = 5;
                a.maximum = 5;
            },
            0, 100, 6, "%.2i", {"Y axis minimum (5) should be < Y axis maximum (5)"}},
        {"powers of ten", [](ChartAxisOptions &a) { a.scale = Log10; }, 1, 100, 6, "%.0f", {}},
        {"powers of two", [](ChartAxisOptions &a) { a.scale = Log2; }, 2, 128, 6, "%.0f", {}},
        {"a logarithm has no zero",
            [](ChartAxisOptions &a) {
                a.scale = Log10;
                a.customMinimum = a.customMaximum = true;
                a.minimum = 0;
                a.maximum = -1;
            },
            1, 100, 6, "%.0f",
            {"Y axis minimum should be > 0 for a logarithmic scale",
                "Y axis maximum should be > 0 for a logarithmic scale"}},
        {"logarithm with bounds in the wrong order",
            [](ChartAxisOptions &a) {
                a.scale = Log10;
                a.customMinimum = a.customMaximum = true;
                a.minimum = 7;
                a.maximum = 2;
            },
            1, 100, 6, "%.0f", {"Y axis minimum (7) should < Y axis maximum (2)"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        ChartSample sample(lines, Scatter);
        c.set(sample.options.y);
        const ChartModel model = sample.model();
        const ChartAxis axis = model.facets.first().y;
        EXPECT_DOUBLE_EQ(axis.minimum, c.minimum);
        EXPECT_DOUBLE_EQ(axis.maximum, c.maximum);
        EXPECT_EQ(axis.tickCount, c.ticks);
        EXPECT_EQ(axis.labelFormat, c.format);
        EXPECT_EQ(model.warnings, c.warnings);
    }
}

TEST(ChartModel, LogarithmsRefuseWhatIsNotAboveZero)
{
    ChartSample sample({"x|y", "0|1", "10|-2", "100|5"}, Scatter);
    sample.options.x.scale = sample.options.y.scale = Log10;
    const ChartModel model = sample.model();
    EXPECT_EQ(model.warnings,
        (QStringList{"'0' is not a valid number for a logarithmic axis in column 'x' at row 1 (must be > 0)",
            "'-2' is not a valid number for a logarithmic axis in column 'y' at row 2 (must be > 0)"}));
    EXPECT_EQ(shown(model), (QStringList{"y vs x", "y: 100,5"}));
}

TEST(ChartModel, FacetsShareTheirRangeWhenAsked)
{
    ChartSample sample({"x|a|b", "1|1|-900", "2|9|40"}, Line, Faceted);
    ChartModel model = sample.model();
    EXPECT_NE(model.facets.at(0).y.minimum, model.facets.at(1).y.minimum);
    sample.options.ySameRangeAllFacets = true;
    model = sample.model();
    for (const ChartFacet &facet : model.facets) {
        EXPECT_EQ(facet.y.minimum, -1000);
        EXPECT_LE(40, facet.y.maximum);
        EXPECT_EQ(facet.y.maximum, model.facets.at(0).y.maximum);
    }
}

TEST(ChartModel, BarsReachFromZeroToTheSumOfAStack)
{
    ChartSample sample({"x|a|b", "p|30|60", "q|-30|-5"}, VerticalBar, Stacked);
    const ChartAxis y = sample.model().facets.first().y;
    EXPECT_EQ(y.minimum, -50);
    EXPECT_EQ(y.maximum, 100);
}

TEST(ChartModel, DatesHaveMarksOnWholeDays)
{
    ChartSample sample({"x|y", "2024-03-01|1", "2024-04-11|2"}, Line);
    const ChartAxis x = sample.model().facets.first().x;
    ASSERT_EQ(x.kind, ChartAxis::Date);
    constexpr double day = 86400000.0;
    const double step = (x.maximum - x.minimum) / (x.tickCount - 1) / day;
    EXPECT_DOUBLE_EQ(step, 7.0);
    EXPECT_EQ(x.labelFormat, "yyyy-MM-dd");
}
