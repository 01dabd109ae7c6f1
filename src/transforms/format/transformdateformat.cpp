#include "data/datasource.h"
#include "data/values.h"
#include "transforms/format/datetimeconverter.h"
#include "transforms/frame/conversiontransform.h"
#include "transforms/frame/messages.h"
#include "transforms/keys/keysuggestion.h"
#include "transforms/options/option.h"
#include "transforms/options/optionchecks.h"
#include "transforms/options/optionvalues.h"

#include <memory>

/// Rewrites the dates and times of the selected columns in another format.
class TransformDateFormat final : public ConversionTransform
{
    enum NonDate { Leave, ChangeToEmpty, ChangeToUserDefined }; // the choices of Non_Date, in their order

public:
    TransformDateFormat()
        : ConversionTransform("Date_Format", "Change the date and/or time format in the selected column(s).",
            "locale converts datetimes milliseconds seconds minutes hours times dddd mmmm yyyy days weeks months years "
            "dates")
    {
    }

private:
    static constexpr int testedColumns = 25;
    static QString inputLabel() { return QStringLiteral("Format from"); }

    OptionTable options() const override
    {
        const QString help = dateFormatHelp();
        return {
            Option::columns("Columns"),
            Option::locale("Input_Locale", "Locale from")
                .tip("Choose the locale to convert from. The locale affects the format expected.\nE.g. the names of "
                     "days of the week (for 'ddd' and 'dddd' formats)\nand the months of the year (for 'MMM' and "
                     "'MMMM' formats)."),
            Option::text("Input", inputLabel(), "d/MM/yyyy")
                .check(&OptionChecks::dateFormat)
                .tip(QStringLiteral("The current date and/or time format, e.g. d/M/yyyy.\n%1\nClick the ? button for "
                                    "more details.")
                         .arg(help)),
            Option::locale("Output_Locale", "Locale to")
                .tip("Choose the locale to convert to. The locale affects how dates are displayed.\nE.g. the names of "
                     "days of the week (for 'ddd' and 'dddd' formats)\nand the months of the year (for 'MMM' and "
                     "'MMMM' formats)."),
            Option::text("Output", "Format to", "yy/MM/dd")
                .check(&OptionChecks::dateFormat)
                .tip(QStringLiteral(
                    "The new date and/or time format, e.g. yyyy-M-d.\n%1\nClick the ? button for more details.")
                         .arg(help)),
            Option::selection("Non_Date", "Non-date", {"Leave", "Change to empty", "Change to user defined"})
                .tip(QStringLiteral("What to do with values that don't match '%1'.").arg(inputLabel())),
            Option::text("User_Defined", "With value")
                .tip(QStringLiteral("The value to set for values that don't match '%1'.").arg(inputLabel()))
                .activeWhen("Non_Date", {"Change to user defined"}),
        };
    }

    void adjustNewParameters(const QList<DataSource *> &inputs, bool) override
    {
        if (inputs.isEmpty()) {
            return;
        }
        const Dataset &input = inputs.first()->datasetConst();
        for (int i = 0; i < qMin(input.columnCount(), testedColumns); ++i) {
            const QHash<ColumnIndex, QString> formats = dateColumnFormats(input, {ColumnIndex(i)});
            if (!formats.isEmpty()) {
                parameter("Input")->setValue(*formats.cbegin());
                return;
            }
        }
    }

    Plan plan(const OptionValues &values, const Dataset &, const QVector<ColumnIndex> &columns) override
    {
        const QString format = values.text("Input");
        if (format.isEmpty()) {
            return {};
        }
        const auto converter = std::make_shared<DateTimeConverter>(
            format, values.locale("Input_Locale"), values.text("Output"), values.locale("Output_Locale"));
        const Rule rule = [converter](const Cell &cell, TextBuffer &out) {
            if (cell.isEmpty()) {
                out.clear();
                return true;
            }
            return converter->convert(cell, out);
        };
        Plan plan;
        plan.rules.assign(static_cast<size_t>(columns.size()), rule);
        switch (values.choice("Non_Date")) {
        case ChangeToEmpty:
            plan.unreadText = QString();
            break;
        case ChangeToUserDefined:
            plan.unreadText = values.text("User_Defined");
            break;
        default:
            break;
        }
        return plan;
    }

    QString unreadHeading(const OptionValues &values, qint64 count) const override
    {
        return QStringLiteral("%1 %2 not converted. Unconverted values either do not match '%3'='%4' or are "
                              "non-existent dates for your locale (e.g. 29th February 2023):")
            .arg(Messages::count(count), Messages::word(count, "value is", "values are"), inputLabel(),
                values.text("Input"));
    }
};

TRANSFORM_FACTORY(TransformDateFormat)
