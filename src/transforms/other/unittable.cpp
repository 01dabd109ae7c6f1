#include "transforms/other/unittable.h"

#include <algorithm>

const std::vector<Dimension> &dimensions()
{
    static const std::vector<Dimension> table{
        {"Angle",
            {{"Degrees", 1, 0}, {"Minutes of arc", 60, 0}, {"Radians", 0.0174533, 0}, {"Seconds of arc", 3600, 0}}},
        {"Area", {{"Square meters", 1, 0}, {"Acres", 0.000247105, 0}, {"Hectares", 0.0001, 0},
                     {"Square foot", 10.7639, 0}, {"Square inch", 1550, 0}, {"Square kilometers", 1e-06, 0},
                     {"Square miles", 3.861e-07, 0}, {"Square yards", 1.19599, 0}}},
        {"Energy", {{"Joules", 1, 0}, {"British Thermal Units", 0.000947817, 0}, {"Calories", 0.239006, 0},
                       {"Erg", 10000000, 0}, {"Foot pounds", 0.737562, 0}, {"Kilocalories", 0.000239006, 0},
                       {"Kilojoules", 0.001, 0}, {"Kilowatt hours", 2.7778e-07, 0}, {"Therms (US)", 9.4804e-09, 0},
                       {"Watt hours", 0.000277778, 0}}},
        {"Length", {{"Meters", 1, 0}, {"Centimeters", 100, 0}, {"Feet", 3.28084, 0}, {"Inches", 39.3701, 0},
                       {"Kilometers", 0.001, 0}, {"Miles", 0.0006213699, 0}, {"Millimeters", 1000, 0},
                       {"Nautical miles", 0.0005399568, 0}, {"Yards", 1.09361, 0}}},
        {"Mass", {{"Kilograms", 1, 0}, {"Grams", 1000, 0}, {"Milligrams", 1000000, 0}, {"Ounces", 35.274, 0},
                     {"Pounds", 2.20462, 0}, {"Stones", 0.157473, 0}, {"Tonnes", 0.001, 0},
                     {"Tons (Imperial)", 0.000984207, 0}, {"Tons (US)", 0.00110231, 0}}},
        {"Power",
            {{"Watts", 1, 0}, {"Horsepower (Imperial)", 0.0013410221, 0}, {"Horsepower (Metric)", 0.0013596216, 0},
                {"Kilowatts", 0.001, 0}, {"Megawatts", 1e-06, 0}, {"Milliwatts", 1000, 0}}},
        {"Pressure", {{"Pascals", 1, 0}, {"Bars", 1e-05, 0}, {"Pounds per square inch", 0.000145038, 0},
                         {"Standard atmospheres", 9.8692e-06, 0}}},
        {"Temperature", {{"Celsius/Centigrade", 1, 0}, {"Fahrenheit", 1.8, 32.0}, {"Kelvin", 1, 273.15}}},
        {"Time", {{"Seconds", 1, 0}, {"Days", 1.1574074074074073e-05, 0}, {"Hours", 0.0002777777777777778, 0},
                     {"Milliseconds", 1000, 0}, {"Minutes", 0.016666666666666666, 0},
                     {"Weeks", 1.6534391534391535e-06, 0}, {"Years", 3.168808781402895e-08, 0}}},
        {"Velocity", {{"Meters per second", 1, 0}, {"Feet per second", 3.28084, 0}, {"Kilometers per hour", 3.6, 0},
                         {"Knots", 1.94384, 0}, {"Miles per hour", 2.23694, 0}}},
        {"Volume",
            {{"Liters", 1, 0}, {"Cubic feet", 0.0353147, 0}, {"Cubic inches", 61.0237, 0}, {"Cubic meters", 0.001, 0},
                {"Fluid ounces", 33.814, 0}, {"Gallons (Imperial)", 0.219969, 0}, {"Gallons (US)", 0.264172, 0},
                {"Milliliters", 1000, 0}, {"Pints (Imperial)", 1.75975, 0}, {"Pints (US)", 2.11338, 0}}},
    };
    return table;
}

const Unit *Dimension::find(const QString &unitName) const
{
    const auto unit = std::find_if(
        units.cbegin(), units.cend(), [&unitName](const Unit &u) { return unitName == QLatin1String(u.name); });
    return unit == units.cend() ? nullptr : &*unit;
}

QStringList Dimension::unitNames() const
{
    QStringList names;
    for (const Unit &unit : units) {
        names.append(QString::fromLatin1(unit.name));
    }
    names.sort();
    return names;
}

double converted(double value, const Unit &from, const Unit &to)
{
    return to.factor * ((value - from.offset) / from.factor) + to.offset;
}
