#include "data/columnbuilder.h"
#include "data/numberreader.h"
#include "data/realwriter.h"
#include "data/rowsorting.h"
#include "data/values.h"
#include "text/cappedlist.h"
#include "transforms/analysis/ngramindex.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/keys/rowgroups.h"
#include "transforms/keys/rowkeys.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Counts the sequences of words in a column.
class TransformNgram final : public Transform
{
public:
    TransformNgram()
        : Transform("Ngram", "Count sequences of N consecutive words in the selected column.",
            "frequencies frequency words trigrams bigrams ngrams grams sequences count")
    {
    }

private:
    static constexpr int mostWords = 9;

    static QString noSum() { return QStringLiteral("Rows"); }

    OptionTable options() const override
    {
        return {
            Option::column("Column", "Column").tip("The column in the input dataset to count ngrams in."),
            Option::integer("Min_N", "Minimum N", 1)
                .limits(1, mostWords)
                .tip("The minimum number of words in the ngram.\nE.g. set to 2 if you want to count sequences of 2 "
                     "words or longer."),
            Option::integer("Max_N", "Maximum N", 5)
                .limits(1, mostWords)
                .tip("The maximum number of words in the ngram.\nE.g. set to 5 if you want to count sequences of 5 "
                     "words or less."),
            Option::column("Sum", "Sum")
                .notRequired()
                .noneText(noSum())
                .preselect(false)
                .tip(QStringLiteral(
                    "Select '%1' to count the number of rows that contain each ngram.\n"
                    "Select a column to sum numeric values in that column for all rows containing the ngram.")
                         .arg(noSum())),
            Option::flag("Case_Sensitive", "case sensitive", true).tip("Converts all to lower case if unchecked."),
            Option::flag("Drilldown", "allow drilldown").tip("Allow double click to drilldown in the data table."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const int least = values.integer("Min_N");
        const int most = values.integer("Max_N");
        if (least > most) {
            addWarning(
                QStringLiteral("%1 must be >= %2").arg(parameter("Max_N")->label(), parameter("Min_N")->label()));
            setResultText(Messages::noChanges());
            return Dataset();
        }
        const ColumnIndex column = values.column("Column");
        const ColumnIndex sum = values.column("Sum");
        NgramIndex ngrams(least, most, values.flag("Case_Sensitive"));
        std::vector<double> totals;
        if (column.isValid()) {
            totals = totalsOf(ngrams, input, column, sum);
        }
        std::vector<int> listedAt;
        Dataset result = table(ngrams, totals, sum.isValid() ? input.columnName(sum) : noSum(), listedAt);
        if (values.flag("Drilldown") && column.isValid()) {
            addDrilldown(result, ngrams, input.column(column), listedAt);
        }
        addInfo(QStringLiteral("%1 Ngrams").arg(Messages::count(result.rowCount())));
        setResultText(QStringLiteral("%1 ngrams from %2 rows")
                          .arg(Messages::count(result.rowCount()), Messages::count(input.rowCount())));
        return result;
    }

    /// What each sequence counts for or sums up to. Rows with the same text are taken together.
    std::vector<double> totalsOf(NgramIndex &ngrams, const Dataset &input, ColumnIndex column, ColumnIndex sum)
    {
        RowKeys texts(input, {column});
        for (int row = 0; row < input.rowCount(); ++row) {
            texts.add(row);
        }
        const RowGroups rows(texts.numbers(), texts.count());
        std::vector<double> totals;
        std::vector<char> isCounted(sum.isValid() ? static_cast<size_t>(input.rowCount()) : 0, 0);
        const NumberReader reader(true, true);
        for (int text = 0; text < texts.count(); ++text) {
            reportRow(text, texts.count());
            const RowGroups::Rows group = rows.rows(text);
            const std::vector<int> &found = ngrams.ngramsOf(input.value(RowIndex(group.first()), column));
            if (found.empty()) {
                continue;
            }
            double amount = group.size();
            if (sum.isValid()) {
                amount = 0.0;
                for (const int row : group) {
                    isCounted[static_cast<size_t>(row)] = 1;
                    amount += reader.read(input.cell(RowIndex(row), sum));
                }
            }
            totals.resize(static_cast<size_t>(ngrams.size()));
            for (const int ngram : found) {
                totals[static_cast<size_t>(ngram)] += amount;
            }
        }
        if (sum.isValid()) {
            reportFailures(input, sum, isCounted, reader);
        }
        return totals;
    }

    void reportFailures(
        const Dataset &input, ColumnIndex sum, const std::vector<char> &isCounted, const NumberReader &reader)
    {
        const CellColumn &cells = input.column(sum);
        const QString name = input.columnName(sum);
        CappedList failures;
        for (int row = 0; row < cells.size(); ++row) {
            bool ok = true;
            if (isCounted[static_cast<size_t>(row)]) {
                reader.read(cells.at(row), &ok);
            }
            if (ok) {
                continue;
            }
            failures.add([&] {
                return QStringLiteral("Invalid numeric value '%1' for column '%2' row %3")
                    .arg(cells.at(row).text(), name, QString::number(row + 1));
            });
        }
        if (failures.count() > 0) {
            addWarning(
                QStringLiteral("'%1' non-numeric %2:").arg(name, Messages::word(failures.count(), "value", "values")));
            warningList() += failures.lines();
        }
    }

    /// The sequences, those with the highest figures first; `listedAt` gets the row of each.
    static Dataset table(const NgramIndex &ngrams, const std::vector<double> &totals, const QString &figureName,
        std::vector<int> &listedAt)
    {
        const RealWriter writer;
        ColumnBuilder texts(0);
        ColumnBuilder wordCounts(0);
        ColumnBuilder figures(0);
        ColumnBuilder numbers(0);
        TextBuffer text;
        for (int ngram = 0; ngram < ngrams.size(); ++ngram) {
            if (!ngrams.isNgram(ngram)) {
                continue;
            }
            texts.append(ngrams.text(ngram));
            wordCounts.append(QString::number(ngrams.wordCount(ngram)));
            writer.write(totals[static_cast<size_t>(ngram)], text);
            figures.append(text);
            numbers.append(QString::number(ngram));
        }
        Dataset result;
        result.addNamedColumn(texts.take(), QStringLiteral("Ngrams"));
        result.addNamedColumn(wordCounts.take(), QStringLiteral("Words"));
        result.addNamedColumn(figures.take(), figureName);
        result.addNamedColumn(numbers.take(), QStringLiteral("Number"));
        RowSorting sorting;
        sorting.columns = {-3, 1};
        sorting.dateFormats = dateFormats();
        result.sortRows(sorting);
        const NumberReader reader(QLocale::c(), false, false);
        listedAt.resize(static_cast<size_t>(ngrams.size()));
        for (int row = 0; row < result.rowCount(); ++row) {
            listedAt[static_cast<size_t>(reader.readInt(result.cell(RowIndex(row), ColumnIndex(3))))] = row;
        }
        result.removeColumn(ColumnIndex(3));
        return result;
    }

    static void addDrilldown(
        Dataset &result, NgramIndex &ngrams, const CellColumn &cells, const std::vector<int> &listedAt)
    {
        for (int row = 0; row < cells.size(); ++row) {
            for (const int ngram : ngrams.ngramsOf(cells.at(row).text())) {
                result.addDrilldownRow(RowIndex(listedAt[static_cast<size_t>(ngram)]), ColumnIndex(), RowIndex(row));
            }
        }
    }
};

TRANSFORM_FACTORY(TransformNgram)
