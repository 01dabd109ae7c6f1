#include "data/textregex.h"
#include "transforms/frame/celltransform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionchecks.h"
#include "transforms/options/optionvalues.h"

#include <algorithm>

/// Replaces the selected cells by a piece of them, found by position or by a regular expression.
class TransformExtract final : public CellTransform
{
    // The choices of Using and of From, in their order
    enum Using { Text, Regex };
    enum Place { Start, End };

public:
    TransformExtract()
        : CellTransform("Extract", "Extract text in the selected column(s).",
            "extracts lengths text starts ends offsets matches regex regular expression")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::selection("Using", "Using", {"Text", "Regex"})
                .tip("Whether to extract as text or as a regular expression."),
            Option::integer("Length", "Length", 10)
                .tip("The number of characters to extract.")
                .activeWhen("Using", {"Text"}),
            Option::selection("From", "From", {"Start", "End"})
                .tip("Whether to extract from the start or end of value.")
                .activeWhen("Using", {"Text"}),
            Option::integer("Offset", "Offset", 0)
                .tip("If From=Start, the offset index of the first character from the start.\n"
                     "If From=End, the offset of the last character from the end.")
                .activeWhen("Using", {"Text"}),
            Option::text("Matching", "Matching", "^.*$")
                .tip("Data matching this regular expression will be extracted.")
                .check(&OptionChecks::expression)
                .activeWhen("Using", {"Regex"}),
            Option::flag("Case_Sensitive", "case sensitive", true)
                .tip("Check for case sensitive matching.")
                .activeWhen("Using", {"Regex"}),
        };
    }

    CellRule rule(const OptionValues &values, const Dataset &) const override
    {
        return values.choice("Using") == Text ? textRule(values) : regexRule(values);
    }

    static CellRule textRule(const OptionValues &values)
    {
        const int length = values.integer("Length");
        const int offset = values.integer("Offset");
        const bool fromStart = values.choice("From") == Start;
        return CellRule::inPlace([=](auto *text, int size) {
            const int first = fromStart ? offset : size - offset - length;
            const int begin = qBound(0, first, size);
            const int end = qBound(begin, first + length, size);
            std::copy(text + begin, text + end, text);
            return end - begin;
        });
    }

    static CellRule regexRule(const OptionValues &values)
    {
        const TextRegex pattern(
            values.text("Matching"), values.flag("Case_Sensitive") ? Qt::CaseSensitive : Qt::CaseInsensitive);
        if (!pattern.isValid()) {
            return CellRule([](const QString &) { return QString(); });
        }
        return CellRule([pattern](const QString &text) {
            const QRegularExpressionMatch match = pattern.match(text);
            return match.captured(match.lastCapturedIndex() >= 1 ? 1 : 0);
        });
    }
};

TRANSFORM_FACTORY(TransformExtract)
