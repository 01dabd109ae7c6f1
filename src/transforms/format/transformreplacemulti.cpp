#include "transforms/format/replacechain.h"
#include "transforms/frame/celltransform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Replaces texts and kinds of characters in the selected cells, by a list of terms.
class TransformReplaceMulti final : public CellTransform
{
public:
    TransformReplaceMulti()
        : CellTransform("Replace_Multi", "Replace multiple text in the selected column(s).",
            "replaces regular regex changes empty removes find substitutes matches strings text letters digits "
            "punctuation symbols cleanse with")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::replaceTerms("Replace", "Replace").tip("Replace terms."),
            Option::flag("Case_Sensitive", "case sensitive", true).tip("Check for case sensitive text matching."),
        };
    }

    CellRule rule(const OptionValues &values, const Dataset &input) const override
    {
        const QList<ReplaceTerm> terms = values.replaceTerms("Replace");
        if (ReplaceChain::isIdle(terms)) {
            return {};
        }
        const auto chain = std::make_shared<ReplaceChain>(input, terms, values.flag("Case_Sensitive"));
        CellRule rule;
        if (chain->isConstant()) {
            rule.text = [chain, input](const QString &text) { return chain->apply(input, RowIndex(0), text); };
        } else {
            rule.row = [chain, input](int row, const Cell &cell, TextBuffer &out) {
                setText(out, chain->apply(input, RowIndex(row), cell.text()));
            };
        }
        rule.warnings = [chain] { return chain->warnings(); };
        return rule;
    }
};

TRANSFORM_FACTORY(TransformReplaceMulti)
