#include "charts/chartmodelbuilder.h"

#include "charts/chartranges.h"
#include "data/values.h"
#include "text/cappedlist.h"

#include <QRegularExpression>
#include <algorithm>
#include <climits>
#include <cmath>

using namespace ChartChoice;

namespace {

constexpr int maxFacetRows = 5;
constexpr int nameLength = 30;

bool isLine(int type)
{
    return type == Line || type == SmoothLine;
}

bool isBar(int type)
{
    return type == VerticalBar || type == HorizontalBar;
}

bool isRound(int type)
{
    return type == Pie || type == Donut;
}

bool sumsUp(int type)
{
    return isBar(type) || isRound(type);
}

/// Areas and bars stand on zero.
bool standsOnZero(int type)
{
    return type == Area || isBar(type);
}

bool isLogarithmic(const ChartAxisOptions &axis)
{
    return axis.scale != Linear;
}

/// The format by which dates were read, with all digits: dates in a row are easier to read so.
QString labelFormatOf(QString dateFormat)
{
    static const QRegularExpression single(QStringLiteral("(?<![A-Za-z])([dM])(?![A-Za-z])"));
    return dateFormat.replace(single, QStringLiteral("\\1\\1"));
}

} // namespace

ChartModelBuilder::ChartModelBuilder(const ChartOptions &options, const ChartColumns &columns, const Dataset &data)
    : m_options(options)
    , m_data(data)
{
    const auto place = [&data](ColumnId id) { return id.isNull() ? ColumnIndex() : data.columnIndexOfId(id); };
    m_x = place(columns.x());
    for (const ColumnId id : columns.y()) {
        if (place(id).isValid()) {
            m_y.append(place(id));
        }
    }
}

int ChartModelBuilder::maxPoints(int type)
{
    constexpr int ofBars = 1000;
    constexpr int ofSlices = 100;
    constexpr int ofPoints = 10000;
    return type == NoType ? INT_MAX : isBar(type) ? ofBars : isRound(type) ? ofSlices : ofPoints;
}

int ChartModelBuilder::facetCount() const
{
    return m_options.layout == Faceted ? m_y.size() : 1;
}

bool ChartModelBuilder::tooManyPoints() const
{
    return m_data.rowCount() > maxPoints(m_options.type);
}

bool ChartModelBuilder::tooManyFacetRows() const
{
    const int across = std::clamp(m_options.facetsAcross, 1, maxFacetsAcross);
    return (facetCount() + across - 1) / across > maxFacetRows;
}

int ChartModelBuilder::effectiveXType() const
{
    if (sumsUp(m_options.type) || !m_x.isValid()) {
        return XText;
    }
    if (m_options.xAs != XAutomatic) {
        return m_options.xAs;
    }
    constexpr int numberSample = 100;
    if (m_data.isColumnNumeric(m_x, true, numberSample)) {
        return XNumeric;
    }
    return m_data.isColumnDate(m_x, dateFormats(), nullptr, Dataset::dateSample) ? XDate : XText;
}

bool ChartModelBuilder::refuse(const QString &line, const QString &warning)
{
    m_model.refusal = line;
    if (!warning.isEmpty()) {
        m_model.warnings.append(warning);
    }
    return false;
}

bool ChartModelBuilder::check()
{
    const int type = m_options.type;
    if (type == NoType) {
        return refuse(QStringLiteral("Select a chart type"), QStringLiteral("Select a chart type"));
    }
    if (!m_x.isValid()) {
        return refuse(
            QStringLiteral("Select a column for the X axis"), QStringLiteral("Select a data column for the X axis"));
    }
    if (m_y.isEmpty()) {
        return refuse(QStringLiteral("Select one or more columns for the Y axis"),
            QStringLiteral("Select one or more data columns for the Y axis"));
    }
    if (tooManyPoints()) {
        return refuse(QStringLiteral("Too many data points"),
            QStringLiteral("%1 charts can display a maximum of %2 data points (per facet, if faceted) - you can use a "
                           "'Sample', 'Filter' or 'Slice' transforms to reduce the amount of data")
                .arg(typeLabel(type), formatInteger(maxPoints(type), true)));
    }
    if (tooManyFacetRows()) {
        refuse(QStringLiteral("Too many rows of facets"),
            QStringLiteral("A maximum of %1 rows of facets can be displayed").arg(maxFacetRows));
        if (m_options.facetsAcross < maxFacetsAcross && facetCount() <= maxFacetRows * maxFacetsAcross) {
            m_model.warnings.append(QStringLiteral("Try increasing the number of facets across"));
        }
        return false;
    }
    return m_data.hasRows() || refuse(QStringLiteral("No data"));
}

ChartModel ChartModelBuilder::build()
{
    if (!check() || !readX()) {
        return m_model;
    }
    const bool isLogY = isLogarithmic(m_options.y) && !isRound(m_options.type);
    for (const ColumnIndex column : qAsConst(m_y)) {
        m_yValues.append(ChartValues::yNumbers(m_data, column, isLogY));
    }
    warnOfSeries();
    QVector<int> all;
    for (int i = 0; i < m_y.size(); ++i) {
        all.append(i);
        if (m_options.layout == Faceted) {
            m_model.facets.append(facet({i}));
        }
    }
    if (m_options.layout != Faceted) {
        m_model.facets.append(facet(all));
    }
    for (int i = 0; i < m_model.facets.size(); ++i) {
        addAxes(m_model.facets[i], m_options.layout == Faceted ? QVector<int>{i} : all);
    }
    if (m_options.ySameRangeAllFacets && !isRound(m_options.type)) {
        shareYRange();
    }
    m_model.warnings.removeDuplicates();
    return m_model;
}

bool ChartModelBuilder::readX()
{
    const int type = effectiveXType();
    if (type == XNumeric) {
        m_xValues = ChartValues::numbers(m_data, m_x, isLogarithmic(m_options.x));
    } else if (type == XDate) {
        m_xValues = ChartValues::dates(m_data, m_x);
    } else {
        m_xValues = ChartValues::texts(m_data, m_x);
    }
    if (!sumsUp(m_options.type) && (m_options.xAs == XAutomatic || m_options.xAs == XDate)) {
        m_model.infos.append(QStringLiteral("X axis interpreted as %1").arg(xAsLabel(type)));
    }
    m_model.warnings += m_xValues.warnings;
    m_model.infos += m_xValues.infos;
    return checkDuplicates();
}

/// Texts that occur more than once are summed up, or refused where there are lines.
bool ChartModelBuilder::checkDuplicates()
{
    CappedList repeated;
    for (int i = 0; i < m_xValues.texts.size(); ++i) {
        if (m_xValues.counts.at(i) > 1) {
            repeated.add([&] {
                return QStringLiteral("X axis value '%1' occurs %2 times")
                    .arg(m_xValues.texts.at(i), formatInteger(m_xValues.counts.at(i), true));
            });
        }
    }
    if (repeated.isEmpty()) {
        return true;
    }
    if (sumsUp(m_options.type)) {
        m_model.infos.append(QStringLiteral("Y values with the same X value are summed"));
        return true;
    }
    const QString warning = QStringLiteral("Duplicate values are not allowed for an X axis of type text in %1 charts\n"
                                           "You can use a 'Count' transform to sum duplicates.")
                                .arg(typeLabel(m_options.type));
    refuse(QStringLiteral("No data"), warning);
    m_model.warnings += repeated.lines("more", "more");
    return false;
}

void ChartModelBuilder::warnOfSeries()
{
    const bool isConnected = isLine(m_options.type) || m_options.type == Area;
    for (int i = 0; i < m_y.size(); ++i) {
        const ChartYValues &y = m_yValues.at(i);
        const QString name = m_data.columnName(m_y.at(i));
        m_model.warnings += y.warnings;
        int points = 0;
        for (int row = 0; row < y.values.size(); ++row) {
            points += std::isfinite(y.values.at(row)) && std::isfinite(m_xValues.values.at(row)) ? 1 : 0;
        }
        if (points == 0) {
            m_model.warnings.append(QStringLiteral("No data points for column '%1'").arg(name));
        } else if (points == 1 && (isConnected || isRound(m_options.type))) {
            m_model.warnings.append(QStringLiteral("1 data point for column '%1'").arg(name));
        }
    }
    if (isConnected) {
        QVector<double> known;
        std::copy_if(m_xValues.values.begin(), m_xValues.values.end(), std::back_inserter(known),
            [](double x) { return std::isfinite(x); });
        if (!std::is_sorted(known.begin(), known.end())) {
            m_model.warnings.append(
                QStringLiteral("X values are not ordered in column '%1', use a 'Sort' transform to sort them")
                    .arg(m_data.columnName(m_x)));
        }
    }
    warnOfOverlap();
}

void ChartModelBuilder::warnOfOverlap()
{
    const bool isArea = m_options.type == Area;
    int negative = 0;
    for (const ChartYValues &y : qAsConst(m_yValues)) {
        negative += y.negativeCount;
    }
    if (negative > 0 && (isArea || isRound(m_options.type))) {
        m_model.warnings.append(QStringLiteral("%1 charts are not a good choice for negative values (%2 negative %3)")
                                    .arg(typeLabel(m_options.type), formatInteger(negative, true),
                                        negative == 1 ? QStringLiteral("value") : QStringLiteral("values")));
    }
    constexpr int opaque = 100;
    if (isArea && m_options.layout == Grouped && m_y.size() > 1 && m_options.opacity >= opaque) {
        m_model.warnings.append(
            QStringLiteral("Data may be obscured in %1 %2 charts - try %3 or %4 instead or set the series opacity to "
                           "< 100%")
                .arg(QStringLiteral("grouped"), typeLabel(Area), QStringLiteral("stacked"), QStringLiteral("faceted")));
    }
}

ChartFacet ChartModelBuilder::facet(const QVector<int> &places) const
{
    ChartFacet result;
    result.title = title(m_options.titleOption, m_options.customTitle, QStringLiteral("$(Y) vs $(X)"), places);
    if (isRound(m_options.type)) {
        addRings(result, places);
    } else if (isBar(m_options.type)) {
        addSums(result, places);
    } else {
        addPoints(result, places);
    }
    return result;
}

void ChartModelBuilder::addPoints(ChartFacet &facet, const QVector<int> &places) const
{
    const bool isStacked = m_options.type == Area && m_options.layout == Stacked;
    for (const int place : places) {
        const QVector<double> &y = m_yValues.at(place).values;
        ChartSeries series;
        series.name = m_data.columnName(m_y.at(place));
        series.points.reserve(y.size());
        for (int row = 0; row < y.size(); ++row) {
            const bool hasY = std::isfinite(y.at(row));
            // The series of a stack need the same places, so that one can stand on the other.
            if (std::isfinite(m_xValues.values.at(row)) && (hasY || isStacked)) {
                series.points.append({m_xValues.values.at(row), hasY ? y.at(row) : 0.0});
            }
        }
        if (m_options.type == Area) {
            series.base.fill(0.0, series.points.size());
        }
        facet.series.append(series);
    }
    if (isStacked) {
        stack(facet);
    }
}

/// Sets each area upon the one before.
void ChartModelBuilder::stack(ChartFacet &facet) const
{
    for (int i = 1; i < facet.series.size(); ++i) {
        const QVector<QPointF> &below = facet.series.at(i - 1).points;
        ChartSeries &series = facet.series[i];
        for (int point = 0; point < series.points.size(); ++point) {
            series.base[point] = below.at(point).y();
            series.points[point].ry() += below.at(point).y();
        }
    }
}

void ChartModelBuilder::addSums(ChartFacet &facet, const QVector<int> &places) const
{
    for (const int place : places) {
        const QVector<double> &y = m_yValues.at(place).values;
        ChartSeries series;
        series.name = m_data.columnName(m_y.at(place));
        for (int i = 0; i < m_xValues.texts.size(); ++i) {
            series.points.append({static_cast<double>(i), 0.0});
        }
        for (int row = 0; row < y.size(); ++row) {
            if (std::isfinite(y.at(row))) {
                series.points[static_cast<int>(m_xValues.values.at(row))].ry() += y.at(row);
            }
        }
        facet.series.append(series);
    }
}

void ChartModelBuilder::addRings(ChartFacet &facet, const QVector<int> &places) const
{
    addSums(facet, places);
    const bool oneRingEach = m_options.layout == Stacked || m_options.type == Donut;
    const bool namesColumns = m_y.size() > 1;
    for (const ChartSeries &series : qAsConst(facet.series)) {
        if (oneRingEach || facet.rings.isEmpty()) {
            facet.rings.append(QVector<ChartSlice>());
        }
        for (int i = 0; i < series.points.size(); ++i) {
            const QString text = m_xValues.texts.at(i);
            const QString label = namesColumns
                                      ? QStringLiteral("%1 / %2").arg(ellipsized(series.name, nameLength), text)
                                      : text;
            // A slice can't be less than nothing.
            facet.rings.last().append({label, std::max(0.0, series.points.at(i).y())});
        }
    }
    facet.series.clear();
}

QString ChartModelBuilder::yNames(const QVector<int> &places) const
{
    QStringList names;
    for (const int place : places) {
        names.append(ellipsized(m_data.columnName(m_y.at(place)), nameLength));
    }
    return names.join(QStringLiteral(" / "));
}

QString ChartModelBuilder::title(
    int option, const QString &custom, const QString &automatic, const QVector<int> &places) const
{
    static const QString xMark = QStringLiteral("$(X)");
    static const QString yMark = QStringLiteral("$(Y)");
    if (option == HiddenTitle) {
        return QString();
    }
    const QString pattern = option == CustomTitle ? custom : automatic;
    // In one walk, since a name may look like the other mark.
    QString text;
    for (int i = 0; i < pattern.size();) {
        const QStringRef rest = pattern.midRef(i);
        if (rest.startsWith(xMark)) {
            text += ellipsized(m_data.columnName(m_x), nameLength);
            i += xMark.size();
        } else if (rest.startsWith(yMark)) {
            text += yNames(places);
            i += yMark.size();
        } else {
            text += pattern.at(i++);
        }
    }
    return text;
}

void ChartModelBuilder::addAxes(ChartFacet &facet, const QVector<int> &places)
{
    if (isRound(m_options.type)) {
        return;
    }
    ChartRange x;
    ChartRange y;
    if (standsOnZero(m_options.type) && !isLogarithmic(m_options.y)) {
        y.include(0.0);
    }
    const bool sums = isBar(m_options.type) && m_options.layout == Stacked;
    QVector<double> above(m_xValues.texts.size());
    QVector<double> below(m_xValues.texts.size());
    for (const ChartSeries &series : qAsConst(facet.series)) {
        for (const QPointF &point : series.points) {
            x.include(point.x());
            if (sums) {
                double &sum = (point.y() < 0.0 ? below : above)[static_cast<int>(point.x())];
                sum += point.y();
                y.include(sum);
            } else if (point.y() > 0.0 || !isLogarithmic(m_options.y)) {
                y.include(point.y());
            }
        }
    }
    const int type = effectiveXType();
    constexpr double halfBar = 0.5;
    facet.x = type == XNumeric ? ChartRanges::numbers(m_options.x, x, QLatin1Char('X'), m_model.warnings)
              : type == XDate
                  ? ChartRanges::dates(m_options.xLabelDateFormat.isEmpty() ? labelFormatOf(m_xValues.dateFormat)
                                                                            : m_options.xLabelDateFormat,
                      x)
                  : ChartRanges::texts(m_xValues.texts, halfBar);
    facet.y = ChartRanges::numbers(m_options.y, y, QLatin1Char('Y'), m_model.warnings);
    facet.x.title = title(m_options.x.titleOption, m_options.x.customTitle, QStringLiteral("$(X)"), places);
    facet.y.title = title(m_options.y.titleOption, m_options.y.customTitle, QStringLiteral("$(Y)"), places);
}

/// The common bounds may need other marks, so the widest bounds go through the same choice again.
void ChartModelBuilder::shareYRange()
{
    ChartRange range;
    for (const ChartFacet &facet : qAsConst(m_model.facets)) {
        range.include(facet.y.minimum);
        range.include(facet.y.maximum);
    }
    for (ChartFacet &facet : m_model.facets) {
        const QString title = facet.y.title;
        facet.y = ChartRanges::numbers(m_options.y, range, QLatin1Char('Y'), m_model.warnings);
        facet.y.title = title;
    }
}
