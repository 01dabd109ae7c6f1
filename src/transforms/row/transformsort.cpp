#include "data/rowsorting.h"
#include "data/values.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

/// Sorts rows by text, dates and numbers, and ranks them.
class TransformSort final : public Transform
{
public:
    TransformSort()
        : Transform("Sort", "Sort rows by text, numeric and date values in the selected column(s).",
            "cumulative dense rankings descending arrange ascending ordering levels sorting sorts")
    {
    }

private:
    OptionTable options() const override
    {
        const QString noColumn = QStringLiteral("<None selected>");
        return {
            Option::sortColumns("Columns", "Sorting"),
            Option::flag("Rank_Add", "add rank").tip("Add a rank column."),
            Option::selection("Rank_Types", "Rank type", {"Minimum", "Average", "Maximum", "Dense", "Cumulative"})
                .activeWhenFlag("Rank_Add")
                .tip("Rank type:\n"
                     "Minimum: Minimum rank of each group.\n"
                     "Average: Average rank of each group.\n"
                     "Maximum: Maximum rank of each group\n"
                     "Dense: No gaps between groups.\n"
                     "Cumulative: Proportion of rows with the same or lower numbered rank.\n"
                     "Click the ? button for details."),
            Option::column("Rank_By", "Rank by")
                .preselect(false)
                .notRequired()
                .noneText(noColumn)
                .activeWhenFlag("Rank_Add")
                .tip(QStringLiteral("Rank separately for each distinct value in this column.\n"
                                    "Leave as %1 if you only want a single ranking.")
                         .arg(noColumn)),
            Option::flag("Intelligent_Sort", "intelligent sort", true)
                .tip("Check to sort dates as dates and numbers as numbers (slower).\n"
                     "If unchecked, everything is sorted alphabetically as text."),
            Option::flag("Locale_Aware_Sort", "locale aware")
                .tip("Check to sort text based on the locale set in 'Preferences' (slower)."),
            Option::flag("Case_Sensitive", "case sensitive", true).tip("Ignore case if unchecked."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        Dataset result = input;
        const bool addRank = values.flag("Rank_Add");
        if (addRank) {
            result.appendEmptyColumn();
            result.setHeaderValue(result.lastColumn(), QStringLiteral("Rank"));
        }
        QString report;
        RowSorting sorting;
        sorting.columns = values.sortNumbers("Columns");
        sorting.dateFormats = dateFormats();
        sorting.byValue = values.flag("Intelligent_Sort");
        sorting.localeAware = values.flag("Locale_Aware_Sort");
        sorting.caseSensitive = values.flag("Case_Sensitive");
        sorting.addRank = addRank;
        sorting.rankType = values.choiceAs<RowRanks::Type>("Rank_Types");
        sorting.rankBy = toNumber(values.column("Rank_By")).toInt();
        result.sortRows(sorting, &report);
        if (!report.isEmpty()) {
            addInfo(report);
        }
        setResultText(!addRank && haveSameCells(input, result) ? Messages::noChanges() : QStringLiteral("Sorted"));
        return result;
    }

    static bool haveSameCells(const Dataset &a, const Dataset &b)
    {
        for (int i = 0; i < a.columnCount(); ++i) {
            const CellVector &cells = a.column(ColumnIndex(i)).cells;
            const CellVector &others = b.column(ColumnIndex(i)).cells;
            const auto same = [](const Cell &one, const Cell &other) { return one.sameText(other); };
            if (!cells.sharesWith(others)
                && !std::equal(cells.constData(), cells.constData() + cells.size(), others.constData(), same)) {
                return false;
            }
        }
        return true;
    }
};

TRANSFORM_FACTORY(TransformSort)
