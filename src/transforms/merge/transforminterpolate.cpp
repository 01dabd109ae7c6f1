#include "data/columnbuilder.h"
#include "data/numberreader.h"
#include "data/realwriter.h"
#include "text/cappedlist.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/frame/twoinputs.h"
#include "transforms/options/addedcolumn.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

/// A curve through pairs of a sample and a value.
class Curve
{
public:
    void add(double sample, double value) { m_points.push_back({sample, value}); }
    void sort()
    {
        std::stable_sort(m_points.begin(), m_points.end(), [](const Point &a, const Point &b) { return a.x < b.x; });
    }

    bool isEmpty() const { return m_points.empty(); }
    bool reaches(double x) const { return x >= m_points.front().x && x <= m_points.back().x; }
    /// The value at `x`; those of the ends beyond them. Not for an empty curve.
    double at(double x, bool linear) const
    {
        if (x <= m_points.front().x) {
            return m_points.front().y;
        }
        if (x >= m_points.back().x) {
            return m_points.back().y;
        }
        const auto right = std::upper_bound(
            m_points.cbegin(), m_points.cend(), x, [](double value, const Point &point) { return value < point.x; });
        const auto left = right - 1;
        return linear ? between(*left, *right, x) : right->x - x >= x - left->x ? left->y : right->y;
    }

private:
    struct Point
    {
        double x;
        double y;
    };

    static double between(const Point &left, const Point &right, double x)
    {
        const double span = right.x - left.x;
        const double value = (right.y - left.y) * (x - left.x) / span + left.y;
        if (std::isfinite(value) && std::isfinite(span)) {
            return value;
        }
        const double part = (x / 2 - left.x / 2) / (right.x / 2 - left.x / 2); // the differences are too large
        return left.y * (1 - part) + right.y * part;
    }

    std::vector<Point> m_points;
};

} // namespace

/// Adds a column to the top table with values from a curve whose points stand in the bottom table.
class TransformInterpolate final : public Transform
{
public:
    TransformInterpolate()
        : Transform("Interpolate",
            "Create a new column in the top dataset by interpolating numerical values in the bottom dataset.",
            "linear piecewise interpolating interpolation numerical values sampling samples interpolates")
    {
    }

    bool updateInputOrder(const QList<DataSource *> &) override
    {
        Parameter *sample = parameter(QStringLiteral("Bottom_Sample_Column"));
        Parameter *value = parameter(QStringLiteral("Bottom_Value_Column"));
        const bool crossed = TwoInputs::swapWhenCrossed(parameter(QStringLiteral("Top_Sample_Column")), sample);
        if (crossed && value) {
            value->setNode(sample->node());
            value->setValue(QVariant());
        }
        return crossed;
    }

private:
    enum Type { Piecewise, Linear }; // the choices of Interpolation_Type, in their order

    OptionTable options() const override
    {
        const QString topLabel = QStringLiteral("Top sample column");
        return AddedColumn::withNameOptions(
            {
                Option::column("Top_Sample_Column", topLabel)
                    .tip("Select the column in the top input dataset that you want to sample in the bottom input "
                         "dataset."),
                Option::column("Bottom_Sample_Column", "Bottom sample column")
                    .ofInput(1)
                    .tip(QStringLiteral("Select a column in the bottom dataset matching '%1'.").arg(topLabel)),
                Option::column("Bottom_Value_Column", "Bottom value column")
                    .ofInput(1)
                    .tip("Select a column in the bottom dataset containing the values you want to interpolate."),
                Option::selection(
                    "Interpolation_Type", "Interpolation type", {QStringLiteral("Piecewise"), QStringLiteral("Linear")})
                    .tip("The type of interpolation.\nClick the ? button for more details."),
            },
            QString());
    }

    Dataset computeIncomplete(const Inputs &inputs) override
    {
        if (inputs.isEmpty()) {
            setResultText(TwoInputs::connectSecond());
            return Dataset();
        }
        return withoutValues(OptionValues(parameters()), *inputs.first(), TwoInputs::connectSecond());
    }

    Dataset withoutValues(const OptionValues &values, const Dataset &top, const QString &resultText)
    {
        Dataset result = top;
        result.appendEmptyColumn();
        if (!values.flag("Auto_New_Name")) {
            nameNewColumn(result, values.text("New_Name"));
        }
        setResultText(resultText);
        return result;
    }

    static void nameNewColumn(Dataset &result, const QString &name)
    {
        QStringList names = result.columnNames();
        names.last() = name;
        result.setHeader(names);
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &top = *inputs.at(0);
        const Dataset &bottom = *inputs.at(1);
        const ColumnIndex topSample = values.column("Top_Sample_Column");
        const ColumnIndex bottomSample = values.column("Bottom_Sample_Column");
        const ColumnIndex bottomValue = values.column("Bottom_Value_Column");
        if (!topSample.isValid() || !bottomSample.isValid() || !bottomValue.isValid()) {
            return withoutValues(values, top, Messages::noChanges());
        }
        const Curve curve = readCurve(bottom, bottomSample, bottomValue);
        const QString range = QStringLiteral("%1 outside value range in %2")
                                  .arg(top.columnName(topSample), bottom.columnName(bottomSample));
        Dataset result = top;
        result.appendEmptyColumn();
        result.setColumn(result.lastColumn(),
            interpolated(curve, top, topSample, values.choice("Interpolation_Type") == Linear, range));
        nameNewColumn(result,
            AddedColumn::name(values, QStringLiteral("%1 %2").arg(displayName(), bottom.columnName(bottomValue))));
        return result;
    }

    Curve readCurve(const Dataset &bottom, ColumnIndex sampleColumn, ColumnIndex valueColumn)
    {
        const NumberReader reader(false, true);
        const CellColumn &samples = bottom.column(sampleColumn);
        const CellColumn &values = bottom.column(valueColumn);
        Curve curve;
        CappedList badSamples;
        CappedList badValues;
        for (int row = 0; row < bottom.rowCount(); ++row) {
            bool isSample = false;
            bool isValue = false;
            const double sample = reader.read(samples.at(row), &isSample);
            const double value = reader.read(values.at(row), &isValue);
            if (isSample && isValue) {
                curve.add(sample, value);
                continue;
            }
            if (!isSample) {
                note(badSamples, samples.at(row), row);
            }
            if (!isValue) {
                note(badValues, values.at(row), row);
            }
        }
        curve.sort();
        warnOfNonNumeric(badSamples, bottom.columnName(sampleColumn));
        warnOfNonNumeric(badValues, bottom.columnName(valueColumn));
        return curve;
    }

    CellColumn interpolated(
        const Curve &curve, const Dataset &top, ColumnIndex sampleColumn, bool linear, const QString &range)
    {
        const NumberReader reader(false, true);
        const RealWriter writer;
        const CellColumn &samples = top.column(sampleColumn);
        const int rowCount = top.rowCount();
        ColumnBuilder column(rowCount);
        TextBuffer text;
        qint64 done = 0;
        CappedList bad;
        CappedList outside;
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            bool ok = false;
            const double x = reader.read(samples.at(row), &ok);
            if (!ok) {
                note(bad, samples.at(row), row);
            }
            if (!ok || curve.isEmpty()) {
                column.appendEmpty();
                continue;
            }
            if (!curve.reaches(x)) {
                note(outside, samples.at(row), row);
            }
            writer.write(curve.at(x, linear), text);
            column.append(text);
            ++done;
        }
        warnOfNonNumeric(bad, top.columnName(sampleColumn));
        warn(outside, QStringLiteral("%1 in %2").arg(Messages::word(outside.count(), "value", "values"), range));
        setResultText(
            done == 0 ? Messages::noChanges() : QStringLiteral("%1 values interpolated").arg(Messages::count(done)));
        return column.take();
    }

    static void note(CappedList &examples, const Cell &cell, int row)
    {
        examples.add([&] { return QStringLiteral("'%1' at row %2").arg(cell.text(), QString::number(row + 1)); });
    }

    void warnOfNonNumeric(const CappedList &examples, const QString &columnName)
    {
        warn(examples, QStringLiteral("non-numeric %1 in %2")
                           .arg(Messages::word(examples.count(), "value", "values"), columnName));
    }

    void warn(const CappedList &examples, const QString &fault)
    {
        if (examples.count() > 0) {
            const QString heading = QStringLiteral("%1 %2:").arg(Messages::count(examples.count()), fault);
            addWarning((QStringList{heading} + examples.lines()).join(QLatin1Char('\n')));
        }
    }
};

TRANSFORM_FACTORY(TransformInterpolate)
