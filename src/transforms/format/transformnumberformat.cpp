#include "data/numberreader.h"
#include "transforms/format/decimalguess.h"
#include "transforms/format/numberformatter.h"
#include "transforms/format/numbertidier.h"
#include "transforms/frame/conversiontransform.h"
#include "transforms/frame/messages.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Rewrites the numbers of the selected columns in another format.
class TransformNumberFormat final : public ConversionTransform
{
    enum DecimalFrom { Automatic, Dot, Comma, Preferences, Selected }; // the choices of Decimal_From, in their order

public:
    TransformNumberFormat()
        : ConversionTransform("Num_Format", "Change the number format in the selected column(s).",
            "radix convert currency locale separators scientific exponents places points decimals precision numeric "
            "numbers")
    {
    }

private:
    static constexpr int mostPrecision = 999;

    OptionTable options() const override
    {
        const QStringList decimals{QStringLiteral("Automatic"), QStringLiteral("US/UK . (dot)"),
            QStringLiteral("European , (comma)"), QStringLiteral("Locale in Preferences"),
            QStringLiteral("Selected locale")};
        const QStringList formats{QStringLiteral("e"), QStringLiteral("E"), QStringLiteral("f"), QStringLiteral("g"),
            QStringLiteral("G"), QStringLiteral("s")};
        return {
            Option::columns("Columns"),
            Option::selection("Decimal_From", "From", decimals).tip(decimalTip(decimals)),
            Option::locale("Input_Locale", "Locale from")
                .tip("Choose the locale to convert from. The locale affects how numbers are interpreted.\nE.g. the "
                     "decimal place and group symbols.")
                .activeWhen("Decimal_From", {decimals.at(Selected)}),
            Option::selection("Format", "Format to", formats, 2)
                .tip("The new number format:\ne=exponent, e.g.: 1.230e+06\nE=exponent, e.g.: 1.230E+06\nf=floating "
                     "point, e.g.: 1230000.000\ng=most concise of e or f\nG=most concise of E or f\ns=shortest "
                     "accurate, e.g.: 1230000\nClick the ? button for more details."),
            Option::integer("Precision", "Precision to", 3)
                .limits(0, mostPrecision)
                .tip("The decimal places or significant figures, depending on 'Format to'.\nClick the ? button for "
                     "more details.")
                .activeWhen([](const OptionValues &values) { return values.choiceText("Format") != "s"; }),
            Option::locale("Output_Locale", "Locale to")
                .tip("Choose the locale to convert to. The locale affects how numbers are displayed.\nE.g. the "
                     "decimal place and group symbols."),
            Option::flag("Group_Separator", "use group separator").tip(groupTip()),
            Option::selection("Non_Numeric", "Non-numeric", NonValueAction::choices())
                .tip(QStringLiteral("What to do with non-numeric values.\nWhat is interpreted as a number may depend "
                                    "on your 'Locale' setting in 'Preferences'.\n(%1=not a number).")
                         .arg(QStringLiteral("NaN"))),
        };
    }

    static QString decimalTip(const QStringList &decimals)
    {
        return QStringLiteral("Whether . (Dot) or , (Comma) characters should be interpreted as the decimal separator "
                              "in the input dataset:\n\n%1: Make an intelligent guess for each column, based on the "
                              "input data.\n%2: Use . (Dot) as the decimal separator.\n%3: Use , (Comma) as the "
                              "decimal separator.\n%4: Use the locale in the 'Preferences' window.\n%5: Use the "
                              "selected locale.\n\nClick the ? button for more details.")
            .arg(decimals.at(Automatic), decimals.at(Dot), decimals.at(Comma), decimals.at(Preferences),
                decimals.at(Selected));
    }

    static QString groupTip()
    {
        const QLocale locale;
        constexpr double sample = 1234567.89;
        const QString grouped = locale.toString(sample, 'f', 2);
        const QString plain = QString(grouped).remove(locale.groupSeparator());
        return QStringLiteral("Check to include the group separator for your locale.\nE.g. to turn '%1' into '%2'.")
            .arg(plain, grouped);
    }

    Plan plan(const OptionValues &values, const Dataset &input, const QVector<ColumnIndex> &columns) override
    {
        const NumberFormatter formatter(values.locale("Output_Locale"), values.choiceText("Format").at(0).toLatin1(),
            values.integer("Precision"), values.flag("Group_Separator"));
        Plan plan;
        plan.unreadText = NonValueAction::replacement(values.choiceAs<NonValueAction::Action>("Non_Numeric"));
        for (ColumnIndex column : columns) {
            switch (values.choice("Decimal_From")) {
            case Automatic:
                plan.rules.push_back(rule(NumberTidier(guessedDecimal(input, column)), formatter));
                break;
            case Dot:
                plan.rules.push_back(rule(NumberTidier(QLatin1Char('.')), formatter));
                break;
            case Comma:
                plan.rules.push_back(rule(NumberTidier(QLatin1Char(',')), formatter));
                break;
            case Preferences:
                plan.rules.push_back(rule(NumberReader(false, true), formatter));
                break;
            default:
                plan.rules.push_back(rule(NumberReader(values.locale("Input_Locale"), false, true), formatter));
            }
        }
        return plan;
    }

    template<class Reader>
    static Rule rule(const Reader &reader, const NumberFormatter &formatter)
    {
        return [reader, formatter](const Cell &cell, TextBuffer &out) {
            bool ok = false;
            const double value = reader.read(cell, &ok);
            if (ok) {
                formatter.write(value, out);
            }
            return ok;
        };
    }

    QChar guessedDecimal(const Dataset &input, ColumnIndex column)
    {
        const DecimalGuess guess = DecimalGuess::of(input.column(column), QLocale());
        const QString name = input.columnName(column);
        const QString number = QString::number(toNumber(column).toInt());
        addInfo(QStringLiteral("In column '%1' (%2) of %3 values checked %4 have probable Dot decimal separator and "
                               "%5 have probable Comma decimal separator")
                    .arg(name, number, QString::number(guess.checked), QString::number(guess.dotVotes),
                        QString::number(guess.commaVotes)));
        addInfo(QStringLiteral("'%1' chosen as likely decimal separator").arg(guess.character));
        if (guess.isDoubtful()) {
            addWarning(QStringLiteral("In column '%1' (%2) some numeric values may not have a %3 decimal separator")
                           .arg(name, number, guess.character == QLatin1Char('.') ? ". (Dot)" : ", (Comma)"));
        }
        return guess.character;
    }

    QString unreadHeading(const OptionValues &, qint64 count) const override
    {
        return QStringLiteral("%1 non-numeric %2:")
            .arg(Messages::count(count), Messages::word(count, "value", "values"));
    }
};

TRANSFORM_FACTORY(TransformNumberFormat)
