#include "data/columnbuilder.h"
#include "data/values.h"
#include "transforms/column/calculation.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/addedcolumn.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

static QByteArray calculateKeywords()
{
    return "absolute add and arithmetic binary bitwise boolean calculate calendar ceiling columns compute conversions "
           "convert dates datetime days decrement difference divide epoch exponent find floor formula hours increment "
           "indexof julian lastindexof leap length levenshtein logarithm maximum milli milliseconds minimum minus "
           "minutes modulus months msecs multiply or plus power product put quarter rounding seconds sign substring "
           "subtract sum times timestamp unary unix variables weeks words xor years 1970 "
           + CalculateOperation::keywords().join(QLatin1Char(' ')).toLatin1();
}

/// Adds a column with the result of one operation on one or two columns or constants.
class TransformCalculate final : public Transform
{
public:
    TransformCalculate()
        : Transform("Calculate", "Perform calculations on 1 or 2 columns to create a new column.",
            calculateKeywords().constData())
    {
    }

    QList<QPair<QString, bool>> parameterStates() const override
    {
        showToolTips();
        return Transform::parameterStates();
    }

private:
    enum Source { Column, Constant }; // the choices of Type1 and Type2, in their order

    OptionTable options() const override
    {
        const QStringList sources{QStringLiteral("Column"), QStringLiteral("Constant")};
        return AddedColumn::withNameOptions(
            {
                Option::selection("Operation", "Operation", CalculateOperation::texts())
                    .tip("The operation to perform.\nClick the ? button for details."),
                Option::selection("Type1", "Value 1 type", sources),
                Option::column("Column1", "Value 1").activeWhen("Type1", {sources.at(Column)}),
                Option::text("Constant1", "Value 1").activeWhen("Type1", {sources.at(Constant)}),
                Option::selection("Type2", "Value 2 type", sources).activeWhen(&hasTwoValues),
                Option::column("Column2", "Value 2")
                    .activeWhen(&hasTwoValues)
                    .activeWhen("Type2", {sources.at(Column)}),
                Option::text("Constant2", "Value 2")
                    .activeWhen(&hasTwoValues)
                    .activeWhen("Type2", {sources.at(Constant)}),
            },
            displayName());
    }

    void adjustNewParameters(const QList<DataSource *> &, bool) override { showToolTips(); }

    static const CalculateOperation &operation(const OptionValues &values)
    {
        return CalculateOperation::at(values.choice("Operation"));
    }

    static bool hasTwoValues(const OptionValues &values) { return operation(values).values == 2; }

    /// The words for the values depend on how many the operation takes.
    void showToolTips() const
    {
        const OptionValues values(parameters());
        const bool isPair = values.has("Operation") && hasTwoValues(values);
        const QString only = isPair ? QStringLiteral("first value") : QStringLiteral("value");
        setToolTips(QStringLiteral("1"), only);
        setToolTips(QStringLiteral("2"), QStringLiteral("second value"));
    }

    void setToolTips(const QString &number, const QString &value) const
    {
        const QPair<QString, QString> tips[] = {
            {QStringLiteral("Type"), QStringLiteral("Select whether the %1 is a column or a constant.")},
            {QStringLiteral("Column"), QStringLiteral("Set the %1 as a column.")},
            {QStringLiteral("Constant"), QStringLiteral("Set the %1 as a constant.")},
        };
        for (const auto &tip : tips) {
            if (Parameter *option = parameter(tip.first + number)) {
                option->setToolTip(tip.second.arg(value));
            }
        }
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const CalculateTask task = taskOf(values, input);
        Dataset result = input;
        result.appendEmptyColumn();
        int succeeded = 0;
        if (task.first.isSet() && (task.second.isSet() || task.operation.values == 1)) {
            result.setColumn(result.lastColumn(), calculated(task, input.rowCount(), succeeded));
            QStringList names = result.columnNames();
            names.last() = AddedColumn::name(values, automaticName(task));
            result.setHeader(names);
        }
        setResultText(QStringLiteral("%1 calculations succeeded, %2 failed")
                          .arg(Messages::count(succeeded), Messages::count(input.rowCount() - succeeded)));
        return result;
    }

    static CalculateValue valueOf(const OptionValues &values, const Dataset &input, const QString &number)
    {
        return values.choice(QStringLiteral("Type") + number) == Column
                   ? CalculateValue::ofColumn(input, values.column(QStringLiteral("Column") + number))
                   : CalculateValue::ofConstant(values.text(QStringLiteral("Constant") + number));
    }

    static CalculateTask taskOf(const OptionValues &values, const Dataset &input)
    {
        CalculateTask task;
        task.operation = operation(values);
        task.first = valueOf(values, input, QStringLiteral("1"));
        if (task.operation.values == 2) {
            task.second = valueOf(values, input, QStringLiteral("2"));
        }
        QStringList formats = dateFormats();
        task.firstIsDate = task.first.isSet() && task.first.isDate(formats, &task.firstFormat);
        if (task.firstIsDate && task.second.isSet()) {
            formats.prepend(task.firstFormat);
            task.secondIsDate = task.second.isDate(formats, &task.secondFormat);
        }
        return task;
    }

    CellColumn calculated(const CalculateTask &task, int rowCount, int &succeeded)
    {
        const std::unique_ptr<Calculation> calculation = Calculation::create(task);
        ColumnBuilder column(rowCount);
        TextBuffer text;
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            succeeded += calculation->compute(row, text);
            column.append(text);
        }
        if (calculation->failures().count() > 0) {
            warningList() += calculation->failures().lines("other", "others");
            addWarning(QString());
        }
        return column.take();
    }

    static QString automaticName(const CalculateTask &task)
    {
        const QString name = task.operation.shortName();
        if (task.operation.values == 1) {
            return QStringLiteral("%1(%2)").arg(name, task.first.name());
        }
        return name.size() == 1 ? QStringLiteral("%1%2%3").arg(task.first.name(), name, task.second.name())
                                : QStringLiteral("%1(%2,%3)").arg(name, task.first.name(), task.second.name());
    }
};

TRANSFORM_FACTORY(TransformCalculate)
