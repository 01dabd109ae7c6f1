#include "charts/chartaxes.h"

#include "charts/charttext.h"
#include "data/values.h"

#include <QDateTime>
#include <QLocale>
#include <QSet>
#include <QtCharts/QCategoryAxis>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QLogValueAxis>
#include <QtCharts/QValueAxis>
#include <QtMath>
#include <algorithm>
#include <cmath>

using namespace QtCharts;

namespace {

constexpr int labelLength = 30;
constexpr int slantedLength = 15; // what lies slanted takes room both ways

int lengthAt(int angle)
{
    constexpr int quarter = 90;
    return angle % quarter == 0 ? labelLength : slantedLength;
}

QAbstractAxis *makeNumbers(const ChartAxis &axis)
{
    auto *made = new QValueAxis;
    made->setRange(axis.minimum, axis.maximum);
    made->setTickCount(axis.tickCount);
    made->setLabelFormat(axis.labelFormat);
    return made;
}

QAbstractAxis *makeLogarithmic(const ChartAxis &axis)
{
    auto *made = new QLogValueAxis;
    made->setBase(axis.base);
    made->setRange(axis.minimum, axis.maximum);
    made->setLabelFormat(axis.labelFormat);
    return made;
}

QAbstractAxis *makeDates(const ChartAxis &axis)
{
    auto *made = new QDateTimeAxis;
    made->setFormat(axis.labelFormat);
    made->setRange(QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(axis.minimum)),
        QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(axis.maximum)));
    made->setTickCount(axis.tickCount);
    return made;
}

/// Sets every `step`-th text, each at its whole number.
void setTexts(QCategoryAxis &made, const QStringList &texts, int step, int mostCharacters)
{
    const QStringList old = made.categoriesLabels();
    for (const QString &label : old) {
        made.remove(label);
    }
    made.setStartValue(made.min());
    QSet<QString> used;
    for (int i = 0; i < texts.size(); i += step) {
        QString label = ChartText::plain(ellipsized(texts.at(i), mostCharacters));
        // The axis takes each label once; texts that were cut may be alike.
        while (used.contains(label)) {
            label += QChar(0x200B);
        }
        used.insert(label);
        made.append(label, i);
    }
}

QAbstractAxis *makeTexts(const ChartAxis &axis)
{
    auto *made = new QCategoryAxis;
    made->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    made->setRange(axis.minimum, axis.maximum);
    setTexts(*made, axis.texts, 1, labelLength);
    return made;
}

double widestText(const ChartAxis &axis, int mostCharacters, const QFontMetricsF &metrics)
{
    double width = 0.0;
    for (const QString &text : axis.texts) {
        width = std::max(width, metrics.horizontalAdvance(ellipsized(text, mostCharacters)));
    }
    return width;
}

/// The most marks that divide the same span evenly and are no more than `most`.
int evenTicks(int all, int most)
{
    const int steps = all - 1;
    for (int each = 1; each < steps; ++each) {
        if (steps % each == 0 && steps / each + 1 <= most) {
            return steps / each + 1;
        }
    }
    return 2;
}

double widestLabel(const ChartAxis &axis, const QFontMetricsF &metrics)
{
    if (axis.kind == ChartAxis::Date) {
        const QDateTime last = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(axis.maximum));
        const QDateTime first = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(axis.minimum));
        return std::max(metrics.horizontalAdvance(QLocale().toString(first, axis.labelFormat)),
            metrics.horizontalAdvance(QLocale().toString(last, axis.labelFormat)));
    }
    const bool isWhole = axis.labelFormat.endsWith(QLatin1Char('i'));
    const auto text = [&](double value) {
        return isWhole ? QLocale().toString(value, 'f', 0) : QLocale().toString(value);
    };
    return std::max(metrics.horizontalAdvance(text(axis.minimum)), metrics.horizontalAdvance(text(axis.maximum)));
}

/// The pixels along an axis that a label of that width takes, turned by so many degrees against the axis. QtCharts cuts
/// labels that have less.
double roomAlong(int angle, double width, const QFontMetricsF &metrics)
{
    constexpr double lineGap = 1.1;
    constexpr double padding = 10.0;
    const double radians = qDegreesToRadians(static_cast<double>(angle));
    return std::fabs(std::cos(radians)) * width + std::fabs(std::sin(radians)) * metrics.height() * lineGap + padding;
}

void fitTexts(QCategoryAxis &made, const ChartAxis &axis, int angle, double length, bool acrossLabels)
{
    constexpr int turned = -90;
    const QFontMetricsF metrics(made.labelsFont());
    const double each = length / (axis.maximum - axis.minimum);
    const double width = widestText(axis, lengthAt(angle), metrics) + metrics.averageCharWidth();
    if (acrossLabels && angle == 0 && width > each) {
        angle = turned;
    }
    made.setLabelsAngle(angle);
    const double needed = roomAlong(acrossLabels ? angle : angle + turned, width, metrics);
    // QtCharts shares the length among one more than there are.
    const int most = std::max(1, static_cast<int>(length / needed) - 1);
    const bool allFit = needed <= each && axis.texts.size() <= most + 1;
    setTexts(made, axis.texts, allFit ? 1 : (axis.texts.size() + most - 1) / most, lengthAt(angle));
}

} // namespace

QAbstractAxis *ChartAxes::make(const ChartAxis &axis, const ChartAxisOptions &options)
{
    QAbstractAxis *made = axis.kind == ChartAxis::Log    ? makeLogarithmic(axis)
                          : axis.kind == ChartAxis::Date ? makeDates(axis)
                          : axis.kind == ChartAxis::Text ? makeTexts(axis)
                                                         : makeNumbers(axis);
    made->setVisible(options.show);
    made->setGridLineVisible(options.show && options.showGrid);
    made->setLabelsVisible(options.show && options.showLabels);
    made->setLabelsAngle(options.labelAngle);
    made->setTitleText(ChartText::plain(axis.title));
    made->setTitleVisible(options.show && !axis.title.isEmpty());
    return made;
}

void ChartAxes::fit(
    QAbstractAxis *made, const ChartAxis &axis, const ChartAxisOptions &options, double length, bool acrossLabels)
{
    if (length <= 0.0 || !options.showLabels) {
        return;
    }
    if (auto *texts = qobject_cast<QCategoryAxis *>(made)) {
        return fitTexts(*texts, axis, options.labelAngle, length, acrossLabels);
    }
    constexpr int turned = -90;
    const QFontMetricsF metrics(made->labelsFont());
    const int angle = acrossLabels ? options.labelAngle : options.labelAngle + turned;
    const double each = roomAlong(angle, widestLabel(axis, metrics), metrics);
    const int most = std::max(2, static_cast<int>(length / each));
    if (auto *powers = qobject_cast<QLogValueAxis *>(made)) {
        // Marks stand at powers only, so fewer of them are those of a higher base.
        const double count = std::log(axis.maximum / axis.minimum) / std::log(axis.base);
        powers->setBase(std::pow(axis.base, std::max(1.0, std::ceil(count / (most - 1)))));
    } else if (auto *numbers = qobject_cast<QValueAxis *>(made)) {
        numbers->setTickCount(evenTicks(axis.tickCount, most));
    } else if (auto *dates = qobject_cast<QDateTimeAxis *>(made)) {
        dates->setTickCount(evenTicks(axis.tickCount, most));
    }
}
