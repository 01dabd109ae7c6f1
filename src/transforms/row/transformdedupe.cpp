#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/row/dedupeprogress.h"
#include "transforms/row/duplicates.h"

/// Removes, keeps or describes rows that repeat others in the selected columns.
class TransformDedupe final : public Transform
{
    enum MatchType { Exact, Fuzzy }; // the choices of Match_Type

public:
    TransformDedupe()
        : Transform("Dedupe", "Remove duplicate rows by matching values in all the selected columns.",
            "dupe distinct fuzzy same duplicates removes unique deduplication dedupes")
    {
    }

    bool hasDuplicateColumns() const override { return true; }
    QString caseSensitiveParameterName() const override { return QStringLiteral("Case_Sensitive"); }
    QString dedupeColumnsParameterName() const override { return QStringLiteral("Columns"); }
    QString matchTypeParameterName() const override { return QStringLiteral("Match_Type"); }
    QString ignoreSpacesParameterName() const override { return QStringLiteral("Ignore_Spaces"); }
    QString ignorePunctuationParameterName() const override { return QStringLiteral("Ignore_Punctuation"); }
    QString fuzzinessParameterName() const override { return QStringLiteral("Fuzziness"); }
    QString dedupeModeParameterName() const override { return QStringLiteral("Dedupe_Mode"); }

private:
    OptionTable options() const override
    {
        const QStringList modes{"Remove duplicates", "Keep only duplicates", "Add duplicate information"};
        return {
            Option::columns("Columns"),
            Option::selection("Match_Type", "Matching", {"Exact", "Fuzzy"})
                .tip("Match type. Fuzzy matching allows matching of rows that are close, but not identical.\n"
                     "Fuzzy matching is slower."),
            Option::integer("Fuzziness", "Closeness", 80)
                .limits(40, 99)
                .suffix("%")
                .activeWhen("Match_Type", {"Fuzzy"})
                .tip("How close the match has to be as a percentage to be considered a duplicate.\n"
                     "E.g. setting it to 80 means text in checked columns must be at least 80% the same."),
            Option::flag("Case_Sensitive", "case sensitive", true).tip("Check for case sensitive matching."),
            Option::flag("Ignore_Spaces", "ignore whitespace").tip("Check to ignore whitespace when matching."),
            Option::flag("Ignore_Punctuation", "ignore punctuation").tip("Check to ignore punctuation when matching."),
            Option::selection("Dedupe_Mode", "Mode", modes)
                .tip(QStringLiteral("%1: Removes all duplicate rows.\n"
                                    "%2: Keeps only the duplicate rows (the inverse of '%1').\n"
                                    "%3: Adds extra columns with information about duplicates. Reorders rows, but does "
                                    "not remove them.")
                         .arg(modes.at(0), modes.at(1), modes.at(2))),
            Option::flag("Drilldown", "allow drilldown")
                .activeWhen("Match_Type", {"Exact"})
                .activeWhen("Dedupe_Mode", {modes.first()})
                .tip("Allow double click to drilldown in the data table."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QVector<ColumnIndex> columns = values.columns("Columns");
        const auto mode = values.choiceAs<DedupeMode>("Dedupe_Mode");
        Dataset result;
        if (columns.isEmpty()) {
            result = input;
            result.clearDrilldown();
            if (mode == DedupeMode::AddInformation) {
                appendDuplicateColumns(result);
            }
        } else {
            result = deduped(values, input, columns, mode);
        }
        setResultText(mode == DedupeMode::AddInformation ? QStringLiteral("Duplicate information added")
                                                         : Messages::rowsRemoved(input.rowCount() - result.rowCount()));
        return result;
    }

    Dataset deduped(
        const OptionValues &values, const Dataset &input, const QVector<ColumnIndex> &columns, DedupeMode mode)
    {
        DedupeProgress progress;
        connect(&progress, QOverload<qreal>::of(&DedupeProgress::processed), this, &Transform::processed);
        const int closeness = values.choice("Match_Type") == Exact ? 100 : values.integer("Fuzziness");
        int nonDupesFound = 0;
        int dupesFound = 0;
        const KeyFolding folding{
            values.flag("Case_Sensitive"), values.flag("Ignore_Spaces"), values.flag("Ignore_Punctuation")};
        const DuplicateRules rules{columns, folding, closeness, mode, values.flag("Drilldown")};
        return findDuplicates(&progress, input, rules, &nonDupesFound, &dupesFound);
    }
};

TRANSFORM_FACTORY(TransformDedupe)
