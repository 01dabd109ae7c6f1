#include "data/columnbuilder.h"
#include "data/numberreader.h"
#include "data/values.h"
#include "text/cappedlist.h"
#include "transforms/analysis/bins.h"
#include "transforms/analysis/countedcolumn.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/addedcolumn.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <cmath>

/// Counts how many numbers of a column lie in each of a row of ranges.
class TransformBin final : public Transform
{
    enum Type { Real, Integer }; // the choices of Type

    static constexpr int shownFailures = 4;

public:
    TransformBin()
        : Transform("Bin", "Count the occurrences of numeric values in discrete ranges.",
            "histograms ranges intervals discretizes discrete classify group buckets binning")
    {
    }

private:
    OptionTable options() const override
    {
        const QString sizeTip = QStringLiteral("The size of each bin.");
        const QString lowerTip = QStringLiteral("Values below this are put in the lower threshold bin.");
        const QString upperTip = QStringLiteral("Values equal to or above this are put in the upper threshold bin.");
        return AddedColumn::withNameOptions(
            {
                Option::column("Column", "Column").tip("The column in the input dataset to bin."),
                Option::selection("Type", "Type", {"Real", "Integer"}).tip("The type of values to bin."),
                realOption("Bin_Size_Real", "Bin size", 10.0).limits(0.01, 99999999999999.9).tip(sizeTip),
                integerOption("Bin_Size_Int", "Bin size", 10).limits(1, 214748364).tip(sizeTip),
                Option::flag("Use_Lower_Threshold", "set lower threshold").tip("Check to set a lower threshold bin."),
                realThreshold("Lower_Threshold_Real", "Lower threshold", 0.0, "Use_Lower_Threshold").tip(lowerTip),
                integerThreshold("Lower_Threshold_Int", "Lower threshold", 0, "Use_Lower_Threshold").tip(lowerTip),
                Option::flag("Use_Upper_Threshold", "set upper threshold").tip("Check to set an upper threshold bin."),
                realThreshold("Upper_Threshold_Real", "Upper threshold", 100.0, "Use_Upper_Threshold").tip(upperTip),
                integerThreshold("Upper_Threshold_Int", "Upper threshold", 100, "Use_Upper_Threshold").tip(upperTip),
                Option::text("Range_Delimiter", "Range delimiter", "-").tip("Delimiter to use in the range text."),
                Option::flag("Drilldown", "allow drilldown").tip("Allow double click to drilldown in the data table."),
            },
            QStringLiteral("Count"));
    }

    static Option realOption(const QString &key, const QString &label, double value)
    {
        return Option::real(key, label, value).activeWhen("Type", {"Real"});
    }
    static Option integerOption(const QString &key, const QString &label, int value)
    {
        return Option::integer(key, label, value).activeWhen("Type", {"Integer"});
    }
    static Option realThreshold(const QString &key, const QString &label, double value, const QString &flag)
    {
        return realOption(key, label, value).limits(-999999999999999.0, 999999999999999.0).activeWhenFlag(flag);
    }
    static Option integerThreshold(const QString &key, const QString &label, int value, const QString &flag)
    {
        return integerOption(key, label, value)
            .limits(std::numeric_limits<int>::min(), std::numeric_limits<int>::max())
            .activeWhenFlag(flag);
    }

    static Bins::Settings settingsOf(const OptionValues &values)
    {
        const bool integers = values.choice("Type") == Integer;
        const auto number = [&values, integers](const QString &name) {
            return integers ? values.integer(name + QStringLiteral("_Int"))
                            : values.real(name + QStringLiteral("_Real"));
        };
        Bins::Settings settings;
        settings.integers = integers;
        settings.size = number("Bin_Size");
        if (values.flag("Use_Lower_Threshold")) {
            settings.lower = number("Lower_Threshold");
        }
        if (values.flag("Use_Upper_Threshold")) {
            settings.upper = number("Upper_Threshold");
        }
        settings.delimiter = values.text("Range_Delimiter");
        return settings;
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const ColumnIndex column = values.column("Column");
        const Bins::Settings settings = settingsOf(values);
        Bins bins(settings);
        std::vector<int> rows;
        CappedList failures(shownFailures);
        if (column.isValid() && settings.lower && settings.upper && *settings.lower >= *settings.upper) {
            addWarning(QStringLiteral("Lower threshold >= upper threshold"));
        } else if (column.isValid()) {
            rows = addRows(bins, input.column(column), settings.integers, failures);
        }
        Dataset result = binned(values, input, column, bins, rows);
        setResultText(QStringLiteral("%1 bins from %2 rows")
                          .arg(Messages::count(result.rowCount()), Messages::count(static_cast<qint64>(rows.size()))));
        warningList() += failures.lines();
        return result;
    }

    /// Returns the rows whose values went into a bin.
    std::vector<int> addRows(Bins &bins, const CellColumn &cells, bool integers, CappedList &failures)
    {
        const NumberReader reader(false, true);
        std::vector<int> rows;
        for (int row = 0; row < cells.size(); ++row) {
            reportRow(row, cells.size());
            const Cell &cell = cells.at(row);
            bool ok = false;
            const double value = integers ? reader.readInt(cell, &ok) : reader.read(cell, &ok);
            if (ok && !std::isnan(value)) {
                bins.add(value);
                rows.push_back(row);
            } else {
                failures.add([&] {
                    return QStringLiteral("'%1' is not a %2 value in row %3")
                        .arg(cell.text(), QLatin1String(integers ? "integer" : "real"), QString::number(row + 1));
                });
            }
        }
        return rows;
    }

    Dataset binned(const OptionValues &values, const Dataset &input, ColumnIndex column, const Bins &bins,
        const std::vector<int> &rows)
    {
        QVector<Bins::Bin> list;
        const bool tooMany = bins.rangeCount() > Bins::mostRanges;
        if (tooMany) {
            addWarning(QStringLiteral("Too many bins (%1), maximum allowed is %2")
                           .arg(countText(bins.rangeCount()), Messages::count(Bins::mostRanges)));
        } else {
            list = bins.list();
        }
        ColumnBuilder labels(list.size());
        ColumnBuilder counts(list.size());
        for (const Bins::Bin &bin : qAsConst(list)) {
            labels.append(bin.label);
            counts.append(formatInteger(bin.count, false));
        }
        Dataset result = CountedColumn::table(values, input, column, labels.take(), counts.take());
        if (values.flag("Drilldown") && !tooMany) {
            const std::vector<int> places = bins.places();
            for (size_t i = 0; i < rows.size(); ++i) {
                result.addDrilldownRow(RowIndex(places[i]), ColumnIndex(), RowIndex(rows[i]));
            }
        }
        return result;
    }

    static QString countText(double count)
    {
        constexpr double largestWritten = 1e15;
        return count < largestWritten ? Messages::count(static_cast<qint64>(count)) : QLocale().toString(count);
    }
};

TRANSFORM_FACTORY(TransformBin)
