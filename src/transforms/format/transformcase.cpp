#include "transforms/format/casing.h"
#include "transforms/frame/celltransform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <type_traits>

/// Changes the case of the selected cells.
class TransformCase final : public CellTransform
{
    // The choices of Case, in their order
    enum Case { Lower, Upper, Title, Sentence, LowerCamel, UpperCamel, Kebab, Snake, Inverted };

public:
    TransformCase()
        : CellTransform("Case", "Change the case in the selected column(s).",
            "cases lower upper toupper tolower title sentence camel kebab snake inverted")
    {
    }

private:
    OptionTable options() const override
    {
        const QStringList cases{"Lower case", "Upper case", "Title case", "Sentence case", "Lower camel case",
            "Upper camel case", "Kebab case", "Snake case", "Inverted case"};
        QStringList samples;
        for (int i = 0; i < cases.size(); ++i) {
            samples.append(QStringLiteral("%1 -> %2").arg(cases.at(i), conversion(i, false).text(cases.at(i))));
        }
        return {
            Option::columns("Columns"),
            Option::selection("Case", "Change case to", cases)
                .tip(QStringLiteral("Select the new case. E.g.:\n%1\nClick the ? button for more details.")
                         .arg(samples.join(QLatin1Char('\n')))),
            Option::flag("Keep_Upper", "keep upper case")
                .tip("Check to leave existing upper case letters unchanged.")
                .activeWhen("Case", {"Title case", "Sentence case"}),
        };
    }

    CellRule rule(const OptionValues &values, const Dataset &) const override
    {
        return conversion(values.choice("Case"), values.flag("Keep_Upper"));
    }

    static CellRule conversion(int to, bool keepUpper)
    {
        switch (to) {
        case Lower:
            return CellRule(&lower, [](char *text, int size) { return Casing::lower(text, size); });
        case Upper:
            return CellRule(&upper, [](char *text, int size) { return Casing::upper(text, size); });
        case Title:
            return CellRule::inPlace([=](auto *text, int size) { return Casing::title(text, size, keepUpper); });
        case Sentence:
            return CellRule::inPlace([=](auto *text, int size) { return Casing::sentence(text, size, keepUpper); });
        case LowerCamel:
        case UpperCamel: {
            const bool isUpper = to == UpperCamel;
            return CellRule([=](const QString &text) { return Casing::camelCase(text, isUpper); },
                [=](char *text, int size) { return Casing::camel(text, size, isUpper); });
        }
        case Kebab:
        case Snake:
            return CellRule::inPlace([mark = to == Kebab ? '-' : '_'](auto *text, int size) {
                using Character = std::remove_pointer_t<decltype(text)>;
                return Casing::joined(text, size, Character(mark));
            });
        default:
            return CellRule::inPlace([](auto *text, int size) { return Casing::inverted(text, size); });
        }
    }

    static QString lower(const QString &text) { return text.toLower(); }
    static QString upper(const QString &text) { return text.toUpper(); }
};

TRANSFORM_FACTORY(TransformCase)
