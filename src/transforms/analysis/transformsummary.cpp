#include "data/columnbuilder.h"
#include "transforms/analysis/profiletable.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Makes a profile of the table: a row for each metric, a column for each selected column.
class TransformSummary final : public Transform
{
public:
    TransformSummary()
        : Transform("Summary", "Summarise the values of the selected columns.",
            "skewness skew pearson iqr inter quartiles q3 q1 variance range frequencies frequency frequent deviation "
            "standard mode median mean averages maximum minimum duplicates duplicated unique disinct dates integers "
            "counts text numeric empty statistics summarizes summarises summary")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns").selectAll(),
            Option::flag("Check_For_Dates", "include dates")
                .tip("Check for date values against all the allowed date formats in 'Preferences' (slow for large "
                     "datasets)."),
            Option::flag("Check_Stats", "include statistics")
                .tip("Include sum, average, median, mode, standard deviation, variance, Q1, Q2, IQR and skew for "
                     "numerical values."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QVector<ColumnIndex> columns = values.columns("Columns");
        if (columns.isEmpty()) {
            setResultText(Messages::noChanges());
            return Dataset();
        }
        const ProfileTable table(values.flag("Check_For_Dates"), values.flag("Check_Stats"));
        Dataset result;
        result.appendColumn(column(table.metrics()));
        QStringList header(QStringLiteral("Metric"));
        for (int i = 0; i < columns.size(); ++i) {
            emit processed(static_cast<qreal>(i) / columns.size());
            result.appendColumn(column(table.texts(input, columns.at(i))));
            header.append(input.columnName(columns.at(i)));
        }
        result.setHeader(header);
        setResultText(QStringLiteral("Summary created"));
        return result;
    }

    static CellColumn column(const QStringList &texts)
    {
        ColumnBuilder out(texts.size());
        for (const QString &text : texts) {
            out.append(text);
        }
        return out.take();
    }
};

TRANSFORM_FACTORY(TransformSummary)
