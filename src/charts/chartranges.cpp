#include "charts/chartranges.h"

#include "data/values.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int usualTicks = 6;
/// A double holds every whole number below, and labels in full would be too long to read.
constexpr double largestInFull = 1e12;

bool isWhole(double value)
{
    return std::fabs(value) < largestInFull && value == std::floor(value);
}

QString numberText(double value)
{
    return formatReal(value, false, -1, true);
}

double baseOf(int scale)
{
    constexpr double e = 2.718281828459045;
    constexpr double ten = 10.0;
    return scale == ChartChoice::LogE ? e : scale == ChartChoice::Log2 ? 2.0 : ten;
}

QString chosenFormat(const ChartAxisOptions &options)
{
    static const char letters[] = {'f', 'e', 'E', 'f', 'g', 'G', 'i'};
    const int choice = std::clamp(options.labelFormat, 0, ChartChoice::labelFormatCount - 1);
    return choice == 0 ? QString()
                       : QStringLiteral("%.%1%2").arg(options.labelPrecision).arg(QLatin1Char(letters[choice]));
}

/// Takes custom bounds over. False when they are in the wrong order, which is told; they are left aside then.
bool takeCustomBounds(const ChartAxisOptions &options, ChartAxis &axis, const QString &orderText, QStringList &warnings)
{
    if (options.customMinimum && options.customMaximum && options.minimum >= options.maximum) {
        warnings.append(orderText.arg(numberText(options.minimum), numberText(options.maximum)));
        return false;
    }
    if (options.customMinimum) {
        axis.minimum = options.minimum;
    }
    if (options.customMaximum) {
        axis.maximum = options.maximum;
    }
    return true;
}

/// Makes room where all values are one.
void widen(const ChartAxisOptions &options, ChartAxis &axis)
{
    // A span that a double can hardly tell from nothing can't be divided into steps.
    constexpr double least = 1e-12;
    if (axis.maximum - axis.minimum > least * std::max(std::fabs(axis.minimum), std::fabs(axis.maximum))) {
        return;
    }
    constexpr double part = 0.1;
    const double value = options.customMaximum && !options.customMinimum ? axis.maximum : axis.minimum;
    const double room = value == 0.0 ? 1.0 : std::fabs(value) * part;
    axis.minimum = options.customMinimum ? value : value - room;
    axis.maximum = options.customMaximum && !options.customMinimum ? value : value + room;
}

void makeNice(ChartAxis &axis)
{
    const double step = ChartRanges::niceStep(axis.maximum - axis.minimum, usualTicks - 1);
    const double first = std::floor(axis.minimum / step);
    const double last = std::ceil(axis.maximum / step);
    axis.minimum = first * step;
    axis.maximum = last * step;
    axis.tickCount = static_cast<int>(last - first) + 1;
}

/// Whole numbers are written as such, huge and tiny ones with an exponent.
QString automaticFormat(const ChartAxis &axis)
{
    constexpr double finest = 1e-6;
    const double step = (axis.maximum - axis.minimum) / (axis.tickCount - 1);
    if (isWhole(axis.minimum) && isWhole(axis.maximum) && isWhole(step)) {
        return QStringLiteral("%.2i");
    }
    const bool isExtreme = std::max(std::fabs(axis.minimum), std::fabs(axis.maximum)) >= largestInFull || step < finest;
    return isExtreme ? QStringLiteral("%.4g") : QString();
}

void setLinear(const ChartAxisOptions &options, QChar letter, ChartAxis &axis, QStringList &warnings)
{
    axis.kind = ChartAxis::Value;
    takeCustomBounds(options, axis,
        letter + QStringLiteral(" axis minimum (%1) should be < ") + letter + QStringLiteral(" axis maximum (%2)"),
        warnings);
    widen(options, axis);
    if (options.niceValues) {
        makeNice(axis);
    }
    axis.labelFormat = chosenFormat(options);
    if (axis.labelFormat.endsWith(QLatin1Char('i')) && !(isWhole(axis.minimum) && isWhole(axis.maximum))) {
        warnings.append(
            QStringLiteral("Label format '%1' may truncate %2 axis values.").arg(axis.labelFormat, QString(letter)));
    }
    if (axis.labelFormat.isEmpty()) {
        axis.labelFormat = automaticFormat(axis);
    }
}

/// Bounds at or below 0 are told of and left aside.
ChartAxisOptions withPositiveBounds(ChartAxisOptions options, QChar letter, QStringList &warnings)
{
    if (options.customMinimum && options.minimum <= 0.0) {
        warnings.append(letter + QStringLiteral(" axis minimum should be > 0 for a logarithmic scale"));
        options.customMinimum = false;
    }
    if (options.customMaximum && options.maximum <= 0.0) {
        warnings.append(letter + QStringLiteral(" axis maximum should be > 0 for a logarithmic scale"));
        options.customMaximum = false;
    }
    return options;
}

/// Moves an automatic bound to a power of the base, since only powers have marks.
void moveToPowers(const ChartAxisOptions &options, ChartAxis &axis)
{
    constexpr double tolerance = 1e-9;
    const double logBase = std::log(axis.base);
    if (!options.customMinimum) {
        axis.minimum = std::pow(axis.base, std::floor(std::log(axis.minimum) / logBase + tolerance));
    }
    if (!options.customMaximum) {
        axis.maximum = std::pow(axis.base, std::ceil(std::log(axis.maximum) / logBase - tolerance));
    }
    if (axis.minimum >= axis.maximum && options.customMaximum) {
        axis.minimum = axis.maximum / axis.base;
    } else if (axis.minimum >= axis.maximum) {
        axis.maximum = axis.minimum * axis.base;
    }
}

void setLogarithmic(const ChartAxisOptions &given, QChar letter, ChartAxis &axis, QStringList &warnings)
{
    axis.kind = ChartAxis::Log;
    axis.base = baseOf(given.scale);
    const ChartAxisOptions options = withPositiveBounds(given, letter, warnings);
    const bool inOrder = takeCustomBounds(options, axis,
        letter + QStringLiteral(" axis minimum (%1) should < ") + letter + QStringLiteral(" axis maximum (%2)"),
        warnings);
    moveToPowers(inOrder ? options : ChartAxisOptions(), axis);
    axis.labelFormat = chosenFormat(options);
    if (axis.labelFormat.isEmpty()) {
        const bool isFull = given.scale != ChartChoice::LogE && axis.minimum >= 1.0 && axis.maximum <= largestInFull;
        axis.labelFormat = isFull ? QStringLiteral("%.0f") : QStringLiteral("%.4g");
    }
}

} // namespace

void ChartRange::include(double value)
{
    if (!std::isfinite(value)) {
        return;
    }
    minimum = isEmpty ? value : std::min(minimum, value);
    maximum = isEmpty ? value : std::max(maximum, value);
    isEmpty = false;
}

void ChartRange::include(const ChartRange &other)
{
    if (!other.isEmpty) {
        include(other.minimum);
        include(other.maximum);
    }
}

double ChartRanges::niceStep(double span, int count)
{
    const double raw = span / count;
    constexpr double ten = 10.0;
    const double power = std::pow(ten, std::floor(std::log10(raw)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (raw <= factor * power) {
            return factor * power;
        }
    }
    return ten * power;
}

ChartAxis ChartRanges::numbers(
    const ChartAxisOptions &options, const ChartRange &range, QChar letter, QStringList &warnings)
{
    ChartAxis axis;
    const bool isLogarithmic = options.scale != ChartChoice::Linear;
    axis.minimum = range.isEmpty ? (isLogarithmic ? 1.0 : 0.0) : range.minimum;
    axis.maximum = range.isEmpty ? axis.minimum + 1.0 : range.maximum;
    if (isLogarithmic) {
        setLogarithmic(options, letter, axis, warnings);
    } else {
        setLinear(options, letter, axis, warnings);
    }
    return axis;
}

ChartAxis ChartRanges::dates(const QString &format, const ChartRange &range)
{
    constexpr double day = 24.0 * 60 * 60 * 1000;
    ChartAxis axis;
    axis.kind = ChartAxis::Date;
    axis.labelFormat = format;
    axis.minimum = range.minimum;
    const double days = std::max(1.0, std::round((range.maximum - range.minimum) / day));
    constexpr double evenSteps = 6.0; // also to be had by halves and thirds, where there is room for fewer
    constexpr double fewDays = 36.0;
    const bool isLong = days >= fewDays;
    const double step = std::ceil(days / (isLong ? evenSteps : usualTicks - 1));
    const double steps = isLong ? evenSteps : std::ceil(days / step);
    axis.maximum = axis.minimum + steps * step * day;
    axis.tickCount = static_cast<int>(steps) + 1;
    return axis;
}

ChartAxis ChartRanges::texts(const QStringList &texts, double margin)
{
    ChartAxis axis;
    axis.kind = ChartAxis::Text;
    axis.texts = texts;
    axis.minimum = -margin;
    axis.maximum = std::max(texts.size() - 1 + margin, axis.minimum + 1.0);
    return axis;
}
