#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/row/remainingrows.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <algorithm>
#include <cmath>
#include <numeric>

/// Keeps some of the rows: evenly spread ones, those at an end, or random ones.
class TransformSample final : public Transform
{
    enum Spread { Evenly, Top, Bottom, RandomForQuality, RandomForSpeed }; // the choices of Spread

    static constexpr int largestSeed = 999999;

public:
    TransformSample()
        : Transform(
            "Sample", "Sample from all rows.", "reduce less take selects from bottom evenly randomly sampling samples")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::integer("Rows", "Rows", 100)
                .activeWhenFlag("Disable", false)
                .tip("The number of rows to sample from the input dataset. If greater than or equal to the number of "
                     "input rows, then the input and output will be the same."),
            Option::selection(
                "Spread", "Select", {"Evenly", "Top", "Bottom", "Randomly (for quality)", "Randomly (for speed)"})
                .activeWhenFlag("Disable", false)
                .tip("How to sample from the input dataset."),
            Option::integer("Seed", "Random seed")
                .limits(0, largestSeed)
                .activeWhenFlag("Disable", false)
                .activeWhen([](const OptionValues &values) { return values.choice("Spread") >= RandomForQuality; })
                .tip(QStringLiteral("The seed for the pseudo-random number generator. Set between %1 and %2. Only "
                                    "used when sampling randomly.")
                         .arg(0)
                         .arg(largestSeed)),
            Option::flag("Disable", "disable sampling")
                .highlightChecked()
                .tip("Check to disable sampling (which means that transform does nothing)."),
        };
    }

    void adjustNewParameters(const QList<DataSource *> &, bool) override
    {
        parameter("Seed")->setValue(static_cast<int>(QDateTime::currentSecsSinceEpoch() % largestSeed));
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const int taken = qMin(values.integer("Rows"), input.rowCount());
        if (values.flag("Disable")) {
            addWarning(QStringLiteral("Sampling is disabled"));
        }
        if (values.flag("Disable") || taken == input.rowCount()) {
            setResultText(Messages::noChanges());
            return input;
        }
        const Dataset result = input.withRows(
            sampled(input.rowCount(), taken, values.choice("Spread"), static_cast<quint32>(values.integer("Seed"))));
        setResultText(QStringLiteral("%1 sampled, %2 unsampled")
                          .arg(Messages::count(taken), Messages::count(input.rowCount() - taken)));
        return result;
    }

    QVector<int> sampled(int count, int taken, int spread, quint32 seed)
    {
        switch (spread) {
        case Top:
            return sequence(0, taken);
        case Bottom:
            return sequence(count - taken, taken);
        case RandomForQuality:
            return drawn(count, taken, seed);
        case RandomForSpeed:
            return walked(count, taken, seed);
        default:
            return spreadEvenly(count, taken);
        }
    }

    static QVector<int> sequence(int first, int count)
    {
        QVector<int> rows(count);
        std::iota(rows.begin(), rows.end(), first);
        return rows;
    }

    QVector<int> spreadEvenly(int count, int taken)
    {
        QVector<int> rows(taken);
        for (int k = 1; k <= taken; ++k) {
            reportRow(k - 1, taken);
            rows[k - 1] = static_cast<int>(std::floor(static_cast<double>(count) * k / (taken + 1.0)));
        }
        return rows;
    }

    /// Takes each row with the probability that it needs for the rest to be taken from the rows that are left.
    QVector<int> walked(int count, int taken, quint32 seed)
    {
        QRandomGenerator random(seed);
        std::vector<quint32> numbers(static_cast<size_t>(count));
        random.fillRange(numbers.data(), count);
        QVector<int> rows;
        rows.reserve(taken);
        for (int row = 0; row < count; ++row) {
            reportRow(row, count);
            const int need = taken - rows.size();
            if (need < 1) {
                break;
            }
            if (static_cast<double>(need) / (count - row) >= numbers[static_cast<size_t>(row)] / 4294967295.0) {
                rows.append(row);
            }
        }
        return rows;
    }

    /// Draws rows one by one from all that are left.
    QVector<int> drawn(int count, int taken, quint32 seed)
    {
        constexpr double drawingShare = 0.9;
        QRandomGenerator random(seed);
        RemainingRows remaining(count);
        QVector<int> rows(taken);
        for (int i = 0; i < taken; ++i) {
            reportRow(i, taken, {0.0, drawingShare});
            const quint64 highest = static_cast<quint64>(remaining.size()) - 1;
            rows[i] = remaining.take(static_cast<int>(highest * random.generate() >> 32));
        }
        std::sort(rows.begin(), rows.end());
        emit processed(drawingShare);
        return rows;
    }
};

TRANSFORM_FACTORY(TransformSample)
