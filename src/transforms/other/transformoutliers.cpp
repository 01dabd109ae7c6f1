#include "data/columnbuilder.h"
#include "data/numberreader.h"
#include "data/realwriter.h"
#include "data/values.h"
#include "text/cappedlist.h"
#include "transforms/frame/columnedit.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/other/spread.h"

#include <cmath>
#include <limits>

/// Scores the numbers of a column against their spread and acts on those beyond a threshold.
class TransformOutliers final : public Transform
{
    enum ScoreBy { StandardDeviation, InterQuartileRange };                    // the choices of Score_By
    enum Action { ChangeToThreshold, KeepOutliers, RemoveOutliers, SetValue }; // the choices of Action
    enum NonNumeric { IsOutlier, IsNoOutlier };                                // the choices of Non_Numeric

    static constexpr size_t leastNumbers = 3;

public:
    TransformOutliers()
        : Transform("Outliers", "Find outlier numerical values.",
            "detection anomaly deviation standard fence score scoring zscore threshold winsorize outliers")
    {
    }

private:
    OptionTable options() const override
    {
        const QStringList scores{"Standard Deviation", "Inter Quartile Range"};
        const QStringList actions{"Change to threshold", "Keep outlier rows", "Remove outlier rows", "Set value"};
        return {
            Option::column("Column", "Column").tip("The column to check for outliers."),
            Option::selection("Score_By", "Score by", scores)
                .tip(QStringLiteral("How to score outliers.\n"
                                    "%1: Number of Standard Deviations from average (mean).\n"
                                    "%2: Number of IQRs above Q3 or below Q1.")
                         .arg(scores.at(StandardDeviation), scores.at(InterQuartileRange))),
            Option::real("Threshold", "Threshold", 1.5)
                .limits(1.0, 100.0)
                .tip("If a value has a score greater than +threshold or less than -threshold, it is considered an "
                     "outlier."),
            Option::selection("Action", "Action", actions).tip("The action to take for outliers."),
            Option::text("New_Value", "Value")
                .notRequired()
                .activeWhen("Action", {actions.at(SetValue)})
                .tip("Choose the new value to set for outliers."),
            Option::selection("Non_Numeric", "Non-numeric", {"Treat as outlier", "Treat as not outlier"})
                .activeWhen("Action", actions.mid(KeepOutliers))
                .tip("What to do with non-numeric values.\nWhat is interpreted as a number may depend on your 'Locale' "
                     "setting in 'Preferences'."),
            Option::flag("Add_Scores", "add score column")
                .tip("Check to add a new column containing the outlier scoring."),
        };
    }

    /// The numbers of the column, NaN for a cell that has none.
    struct Numbers
    {
        std::vector<double> byRow;
        std::vector<double> all;
        CappedList failures;
    };

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const ColumnIndex column = values.column("Column");
        setResultText(Messages::noChanges());
        if (!column.isValid()) {
            return input;
        }
        Numbers numbers = read(input.column(column));
        addInfo(QStringLiteral("%1 numeric values").arg(Messages::count(static_cast<qint64>(numbers.all.size()))));
        if (numbers.all.size() < leastNumbers) {
            addWarning(QStringLiteral("Insufficient numeric values to calculate outliers"));
            return input;
        }
        const double threshold = values.real("Threshold");
        const Spread spread = values.choice("Score_By") == StandardDeviation
                                  ? Spread::ofDeviation(std::move(numbers.all), threshold)
                                  : Spread::ofQuartiles(std::move(numbers.all), threshold);
        if (!spread.fault().isEmpty()) {
            addWarning(spread.fault());
            return input;
        }
        infoList() += spread.infos();
        return treated(values, input, column, numbers, spread);
    }

    Numbers read(const CellColumn &cells)
    {
        const NumberReader reader(false, true);
        Numbers numbers;
        numbers.byRow.reserve(static_cast<size_t>(cells.size()));
        for (int row = 0; row < cells.size(); ++row) {
            reportRow(row, cells.size());
            bool ok = false;
            const double number = reader.read(cells.at(row), &ok);
            numbers.byRow.push_back(ok ? number : std::numeric_limits<double>::quiet_NaN());
            if (ok) {
                numbers.all.push_back(number);
            } else {
                numbers.failures.add([&] {
                    return QStringLiteral("'%1' at row %2").arg(cells.at(row).text(), QString::number(row + 1));
                });
            }
        }
        return numbers;
    }

    Dataset treated(const OptionValues &values, const Dataset &input, ColumnIndex column, const Numbers &numbers,
        const Spread &spread)
    {
        const int action = values.choice("Action");
        const bool addScores = values.flag("Add_Scores");
        QStringList told;
        Dataset result = input;
        if (addScores) {
            result.addNamedColumn(scores(numbers, spread), QStringLiteral("Score"));
        }
        const std::vector<char> isOutlier = marked(numbers, spread, values.choice("Non_Numeric") == IsOutlier);
        if (action == KeepOutliers || action == RemoveOutliers) {
            const int before = result.rowCount();
            result = result.withRows(rowsThat(isOutlier, action == KeepOutliers));
            if (result.rowCount() < before) {
                told.append(Messages::rowsRemoved(before - result.rowCount()));
            }
        } else {
            ColumnEdit edit(input.column(column));
            const int changed = action == SetValue ? setOutliers(edit, isOutlier, values.text("New_Value"))
                                                   : limitOutliers(edit, numbers, spread);
            result.setColumn(column, edit.take());
            if (changed > 0) {
                told.append(Messages::changed(changed));
            }
        }
        if (addScores) {
            told.append(Messages::colsAdded(1));
        }
        reportFailures(numbers.failures, action == ChangeToThreshold, told);
        if (!told.isEmpty()) {
            setResultText(told.join(QStringLiteral(", ")));
        }
        return result;
    }

    void reportFailures(const CappedList &failures, bool areLeft, QStringList &told)
    {
        if (failures.count() == 0) {
            return;
        }
        const QString count = Messages::count(failures.count());
        if (areLeft) {
            addWarning(QStringLiteral("Can't change non-numeric values to threshold"));
        }
        addWarning(
            QStringLiteral("%1 non-numeric %2:").arg(count, Messages::word(failures.count(), "value", "values")));
        warningList() += failures.lines();
        told.append(QStringLiteral("%1 non-numeric").arg(count));
    }

    static CellColumn scores(const Numbers &numbers, const Spread &spread)
    {
        const RealWriter writer;
        ColumnBuilder column(static_cast<int>(numbers.byRow.size()));
        TextBuffer text;
        for (const double number : numbers.byRow) {
            if (std::isnan(number)) {
                column.appendEmpty();
            } else {
                writer.write(spread.score(number), text);
                column.append(text);
            }
        }
        return column.take();
    }

    static std::vector<char> marked(const Numbers &numbers, const Spread &spread, bool markNonNumeric)
    {
        std::vector<char> isOutlier;
        isOutlier.reserve(numbers.byRow.size());
        for (const double number : numbers.byRow) {
            isOutlier.push_back(std::isnan(number) ? markNonNumeric : spread.side(number) != 0);
        }
        return isOutlier;
    }

    static QVector<int> rowsThat(const std::vector<char> &isOutlier, bool areOutliers)
    {
        QVector<int> rows;
        for (size_t row = 0; row < isOutlier.size(); ++row) {
            if ((isOutlier[row] != 0) == areOutliers) {
                rows.append(static_cast<int>(row));
            }
        }
        return rows;
    }

    /// Returns how many cells changed.
    static int setOutliers(ColumnEdit &edit, const std::vector<char> &isOutlier, const QString &text)
    {
        const Cell value = edit.store(text);
        int changed = 0;
        for (int row = 0; row < edit.size(); ++row) {
            if (isOutlier[static_cast<size_t>(row)] && !edit.source()[row].sameText(value)) {
                edit.set(row, value);
                ++changed;
            }
        }
        return changed;
    }

    static int limitOutliers(ColumnEdit &edit, const Numbers &numbers, const Spread &spread)
    {
        const Cell lower = edit.store(formatReal(spread.lowerLimit(), false, -1, true));
        const Cell upper = edit.store(formatReal(spread.upperLimit(), false, -1, true));
        int changed = 0;
        for (int row = 0; row < edit.size(); ++row) {
            const double number = numbers.byRow[static_cast<size_t>(row)];
            const int side = std::isnan(number) ? 0 : spread.side(number);
            const Cell &limit = side < 0 ? lower : upper;
            if (side != 0 && !edit.source()[row].sameText(limit)) {
                edit.set(row, limit);
                ++changed;
            }
        }
        return changed;
    }
};

TRANSFORM_FACTORY(TransformOutliers)
