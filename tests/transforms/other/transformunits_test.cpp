#include "support/grid.h"
#include "support/runon.h"
#include "support/scopedlocale.h"
#include "transforms/options/parameter.h"
#include "transforms/other/unittable.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

struct UnitCase
{
    const char *what;
    int dimension;
    const char *from;
    const char *to;
    QString cell;
    QString converted;
};

QString key(const char *name, int dimension)
{
    return name + QString::number(dimension);
}

} // namespace

TEST(TransformUnits, ConvertsNumbers)
{
    const UnitCase cases[] = {
        {"with an offset", 7, "Celsius/Centigrade", "Fahrenheit", "100", "212"},
        {"from an offset to an offset", 7, "Kelvin", "Fahrenheit", "273.15", "32"},
        {"back to the first unit", 7, "Fahrenheit", "Celsius/Centigrade", "-40", "-40"},
        {"from the first unit", 3, "Meters", "Kilometers", "1500", "1.5"},
        {"between two others", 3, "Kilometers", "Centimeters", "1", "100000"},
        {"hours", 8, "Hours", "Minutes", "2", "120"},
        {"groups are read and not written", 3, "Meters", "Millimeters", "1,234.5", "1234500"},
        {"a factor of the table as it stands", 2, "Joules", "Therms (US)", "1", "0.0000000094804"},
        {"text stays", 3, "Meters", "Feet", "12 m", "12 m"},
        {"an empty cell stays", 3, "Meters", "Feet", "", ""},
        {"more than a number can hold", 10, "Liters", "Milliliters", "1e308", "NaN"},
    };
    const ScopedLocale locale("en_US");
    for (const UnitCase &c : cases) {
        SCOPED_TRACE(c.what);
        const OptionSettings options{{"Columns", 1}, {"Dimension", dimensions()[size_t(c.dimension)].name},
            {key("UnitsFrom", c.dimension), c.from}, {key("UnitsTo", c.dimension), c.to}};
        EXPECT_EQ(rows(runOn("Units", options, plainGrid({c.cell}))), QStringList(c.converted));
    }
}

TEST(TransformUnits, TellsWhatHappened)
{
    const ScopedLocale locale("en_US");
    const OptionSettings options{{"UnitsTo8", "Minutes"}};
    const TransformRun run = runTransform("Units", options, {column({"60", "x", "0", ""})});
    EXPECT_EQ(rows(run.result), QStringList({"1", "x", "0", ""}));
    EXPECT_EQ(run.resultText(), "1 changed, 1 unchanged, 2 non-numeric");
    EXPECT_EQ(run.warnings(),
        QStringList({"2 non-numeric values:", "'x' at column 'Value' row 2", "'' at column 'Value' row 4"}));
    EXPECT_EQ(runTransform("Units", options, {column("x")}).resultText(), "No changes");
    const TransformRun same = runTransform("Units", {}, {column("x")});
    EXPECT_EQ(same.resultText(), "No changes");
    EXPECT_EQ(same.warnings(), QStringList());
}

TEST(TransformUnits, OffersTheUnitsOfEachDimension)
{
    const TransformRun run = runTransform("Units", {{"Dimension", "Mass"}}, {column("1")});
    EXPECT_EQ(run.transform->parameters().size(), 2 + 2 * 11);
    const Parameter *mass = run.transform->parameter("UnitsTo4");
    EXPECT_EQ(mass->choices(), QStringList({"Grams", "Kilograms", "Milligrams", "Ounces", "Pounds", "Stones", "Tonnes",
                                   "Tons (Imperial)", "Tons (US)"}));
    EXPECT_EQ(mass->toText(), "Kilograms");
    for (const auto &state : run.transform->parameterStates()) {
        EXPECT_EQ(state.second, state.first == "UnitsFrom4" || state.first == "UnitsTo4") << state.first.toStdString();
    }
}

TEST(UnitTable, ConvertsThereAndBack)
{
    int units = 0;
    for (const Dimension &dimension : dimensions()) {
        const Unit &base = dimension.units.front();
        EXPECT_EQ(base.factor, 1.0);
        EXPECT_EQ(base.offset, 0.0);
        for (const Unit &unit : dimension.units) {
            ++units;
            SCOPED_TRACE(unit.name);
            EXPECT_EQ(dimension.find(unit.name), &unit) << "names are unique";
            EXPECT_GT(unit.factor, 0.0);
            EXPECT_NEAR(converted(converted(123.456, base, unit), unit, base), 123.456, 1e-9);
        }
    }
    EXPECT_EQ(units, 75);
    // Factors that don't fit one another would show here.
    const Dimension &length = dimensions()[3];
    EXPECT_NEAR(converted(1, *length.find("Miles"), *length.find("Feet")), 5280, 0.1);
    EXPECT_NEAR(converted(1, *length.find("Yards"), *length.find("Inches")), 36, 0.01);
    const Dimension &time = dimensions()[8];
    EXPECT_NEAR(converted(1, *time.find("Years"), *time.find("Days")), 365.25, 0.01);
    const Dimension &volume = dimensions()[10];
    EXPECT_NEAR(converted(1, *volume.find("Gallons (Imperial)"), *volume.find("Pints (Imperial)")), 8, 0.01);
}
