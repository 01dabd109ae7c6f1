#include "data/columnbuilder.h"
#include "data/realwriter.h"
#include "transforms/analysis/countedcolumn.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/keys/rowkeys.h"
#include "transforms/options/addedcolumn.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>
#include <numeric>

/// Counts how often each text of a column occurs.
class TransformCount final : public Transform
{
    enum Sort { ByCount, ByText };        // the choices of Sort
    enum Order { Ascending, Descending }; // the choices of Order

public:
    TransformCount()
        : Transform("Count", "Count the occurrences of text in the selected column.",
            "countif frequencies frequency totals sums occurrences counts")
    {
    }

private:
    OptionTable options() const override
    {
        const QStringList sorts{"Count", "Text"};
        return AddedColumn::withNameOptions(
            {
                Option::column("Column", "Column").tip("The column in the input dataset to count occurrences in."),
                Option::selection("Sort", "Sort by", sorts)
                    .tip(QStringLiteral("How to sort results.\n"
                                        "%1=sort by the alphabetic value of the left column.\n"
                                        "%2=sort by the numeric value of the right column.")
                             .arg(sorts.at(ByText), sorts.at(ByCount))),
                Option::selection("Order", "Order", {"Ascending", "Descending"}, Descending)
                    .tip("The order to sort results."),
                Option::flag("Case_Sensitive", "case sensitive", true).tip("Converts all to lower case if unchecked."),
                Option::flag("Drilldown", "allow drilldown").tip("Allow double click to drilldown in the data table."),
            },
            displayName());
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const ColumnIndex column = values.column("Column");
        if (!column.isValid()) {
            setResultText(resultText(0, 0));
            return CountedColumn::table(values, input, column, {}, {});
        }
        RowKeys texts(input, {column}, values.flag("Case_Sensitive"));
        std::vector<int> counts;
        for (int row = 0; row < input.rowCount(); ++row) {
            reportRow(row, input.rowCount());
            texts.add(row);
        }
        texts.sortByText();
        counts.resize(static_cast<size_t>(texts.count()));
        for (int text : texts.numbers()) {
            ++counts[static_cast<size_t>(text)];
        }
        const std::vector<int> order = sorted(counts, values.choice("Sort"), values.choice("Order") == Descending);
        Dataset result = CountedColumn::table(
            values, input, column, labels(input.column(column), texts, order), numbers(counts, order));
        if (values.flag("Drilldown")) {
            addDrilldown(result, texts, order);
        }
        setResultText(resultText(result.rowCount(), input.rowCount()));
        return result;
    }

    static QString resultText(int counted, int rows)
    {
        return QStringLiteral("%1 counted from %2 rows").arg(Messages::count(counted), Messages::count(rows));
    }

    /// The numbers of the texts, which are in the order of the texts, as they are to be listed.
    static std::vector<int> sorted(const std::vector<int> &counts, int sort, bool descending)
    {
        std::vector<int> order(counts.size());
        std::iota(order.begin(), order.end(), 0);
        if (sort == ByCount) {
            std::stable_sort(order.begin(), order.end(), [&counts, descending](int a, int b) {
                const int countOfA = counts[static_cast<size_t>(a)];
                const int countOfB = counts[static_cast<size_t>(b)];
                return descending ? countOfA > countOfB : countOfA < countOfB;
            });
        } else if (descending) {
            std::reverse(order.begin(), order.end());
        }
        return order;
    }

    static CellColumn labels(const CellColumn &cells, const RowKeys &texts, const std::vector<int> &order)
    {
        QVector<int> rows;
        rows.reserve(texts.count());
        for (int text : order) {
            rows.append(texts.firstRow(text));
        }
        return cells.gathered(rows);
    }

    static CellColumn numbers(const std::vector<int> &counts, const std::vector<int> &order)
    {
        const RealWriter writer;
        ColumnBuilder column(static_cast<int>(order.size()));
        TextBuffer number;
        for (int text : order) {
            writer.write(counts[static_cast<size_t>(text)], number);
            column.append(number);
        }
        return column.take();
    }

    static void addDrilldown(Dataset &result, const RowKeys &texts, const std::vector<int> &order)
    {
        std::vector<int> listedAt(order.size());
        for (size_t i = 0; i < order.size(); ++i) {
            listedAt[static_cast<size_t>(order[i])] = static_cast<int>(i);
        }
        int row = 0;
        for (int text : texts.numbers()) {
            result.addDrilldownRow(RowIndex(listedAt[static_cast<size_t>(text)]), ColumnIndex(), RowIndex(row++));
        }
    }
};

TRANSFORM_FACTORY(TransformCount)
