#include "data/columnbuilder.h"
#include "data/datewriter.h"
#include "data/realwriter.h"
#include "data/values.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/randomnumbers.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QTime>
#include <charconv>
#include <climits>

/// Adds a column of seeded pseudo-random values.
class TransformRandom final : public Transform
{
    enum Type { Real, Integer, Date, Text }; // the choices of Type, in their order

public:
    TransformRandom()
        : Transform(
            "Random", "Add a new column filled with pseudo-random values.", "seed synthetic generator psuedo pseudo")
    {
    }

private:
    OptionTable options() const override
    {
        constexpr double most = 999999999999999.0;
        const QString type = QStringLiteral("Type");
        const QDate today = QDate::currentDate();
        return {
            Option::text("New_Name", "New column name", "Random").tip("The name for the new column."),
            Option::selection("Type", "Type", {"Real", "Integer", "Date", "Text"})
                .tip("The type of values to generate."),
            Option::integer("Seed", "Seed", QTime::currentTime().msecsSinceStartOfDay())
                .limits(0, INT_MAX)
                .tip("The seed value for the random number generator."),
            Option::real("Minimum_Real", "Minimum", 0.0)
                .limits(-most, most)
                .activeWhen(type, {"Real"})
                .tip("The minimum value to generate."),
            Option::real("Maximum_Real", "Maximum", 1.0)
                .limits(-most, most)
                .activeWhen(type, {"Real"})
                .tip("The maximum value to generate."),
            Option::integer("Minimum_Int", "Minimum", 0)
                .limits(INT_MIN, INT_MAX)
                .activeWhen(type, {"Integer"})
                .tip("The minimum value to generate."),
            Option::integer("Maximum_Int", "Maximum", 100)
                .limits(INT_MIN, INT_MAX)
                .activeWhen(type, {"Integer"})
                .tip("The maximum value to generate."),
            Option::date("Minimum_Date", "Minimum", today)
                .activeWhen(type, {"Date"})
                .tip("The minimum value to generate."),
            Option::date("Maximum_Date", "Maximum", today)
                .activeWhen(type, {"Date"})
                .tip("The maximum value to generate."),
            Option::text("Date_Format", "Format", "yyyy-MM-dd")
                .activeWhen(type, {"Date"})
                .tip(QStringLiteral("The date format, e.g. yyyy-MM-dd.\n%1\nClick the ? button for details.")
                         .arg(dateFormatHelp())),
            Option::text("Text_Values", "Values", "Value1,Value2")
                .activeWhen(type, {"Text"})
                .tip("A comma separated list of values to randomly select from.\nEmpty values and repeated values are "
                     "allowed."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const int rowCount = result.rowCount();
        result.addNamedColumn(isRangeGood(values)
                                  ? drawn(values, rowCount)
                                  : ColumnBuilder::filled(QStringLiteral("Error: min >= max"), rowCount),
            values.text("New_Name"));
        setResultText(Messages::colsAdded(1));
        return result;
    }

    bool isRangeGood(const OptionValues &values)
    {
        const int type = values.choice("Type");
        const bool good = (type != Real || values.real("Minimum_Real") < values.real("Maximum_Real"))
                          && (type != Integer || values.integer("Minimum_Int") < values.integer("Maximum_Int"))
                          && (type != Date || values.date("Minimum_Date") <= values.date("Maximum_Date"));
        if (!good) {
            addWarning(QStringLiteral("'Minimum' is greater than 'Maximum'"));
        }
        return good;
    }

    CellColumn drawn(const OptionValues &values, int rowCount)
    {
        RandomNumbers random(values.integer("Seed"));
        switch (values.choice("Type")) {
        case Real:
            return reals(random, values.real("Minimum_Real"), values.real("Maximum_Real"), rowCount);
        case Integer:
            return integers(random, values.integer("Minimum_Int"), values.integer("Maximum_Int"), rowCount);
        case Date:
            return dates(random, values, rowCount);
        default:
            return texts(random, values.text("Text_Values").split(QLatin1Char(',')), rowCount);
        }
    }

    CellColumn reals(RandomNumbers &random, double least, double most, int rowCount)
    {
        ColumnBuilder column(rowCount);
        const RealWriter writer;
        TextBuffer text;
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            writer.write(random.unit() * (most - least) + least, text);
            column.append(text);
        }
        return column.take();
    }

    CellColumn integers(RandomNumbers &random, qint64 least, qint64 most, int rowCount)
    {
        ColumnBuilder column(rowCount);
        char digits[24];
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            const auto end = std::to_chars(digits, digits + sizeof digits, random.below(most - least + 1) + least).ptr;
            column.append(digits, static_cast<int>(end - digits));
        }
        return column.take();
    }

    CellColumn dates(RandomNumbers &random, const OptionValues &values, int rowCount)
    {
        const qint64 first = values.date("Minimum_Date").toJulianDay();
        const qint64 count = values.date("Maximum_Date").toJulianDay() - first + 1;
        const DateWriter writer(values.text("Date_Format"), QLocale::system());
        ColumnBuilder column(rowCount);
        TextBuffer text;
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            writer.write(QDate::fromJulianDay(first + random.below(count)), text);
            column.append(text);
        }
        return column.take();
    }

    CellColumn texts(RandomNumbers &random, const QStringList &choices, int rowCount)
    {
        if (choices.size() == 1) {
            return ColumnBuilder::filled(choices.first(), rowCount);
        }
        ColumnBuilder column(rowCount);
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            column.append(choices.at(static_cast<int>(random.below(choices.size()))));
        }
        return column.take();
    }
};

TRANSFORM_FACTORY(TransformRandom)
