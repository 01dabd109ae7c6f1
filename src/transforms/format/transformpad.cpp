#include "transforms/frame/celltransform.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/tablesize.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// Pads the selected cells to a minimum length; longer cells stay as they are.
class TransformPad final : public CellTransform
{
    enum Side { Left, Right }; // the choices of Left_Right, in their order

public:
    TransformPad()
        : CellTransform(
            "Pad", "Pad the selected column(s) to a fixed length.", "pads left right text minimum lengths with")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::columns("Columns"),
            Option::integer("Length", "Minimum length", 10)
                .nonZero()
                .tip("Pad values shorter than this length. NB/ Use the 'Extract' transform to shorten long values."),
            Option::selection("Left_Right", "Pad", {"Left", "Right"}).tip("Which end to add padding."),
            Option::character("Pad_With", "Pad with", '0').tip("The character to use for padding."),
        };
    }

    /// Padding many cells to a great length takes more memory than there is; it is refused, not tried.
    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        constexpr qint64 lengthOfUsualTexts = 1000000;
        const qint64 length = values.integer("Length");
        const qint64 cells = static_cast<qint64>(values.columns("Columns").size()) * inputs.first()->rowCount();
        const qint64 bytesPerCell = TextCoding::maxEncodedSize(length);
        if (length > lengthOfUsualTexts && !TableSize::isPossibleText(cells, bytesPerCell)) {
            addWarning(QStringLiteral("'%1' is too long (%2 characters in %3 %4)")
                           .arg(QStringLiteral("Minimum length"), Messages::count(length), Messages::count(cells),
                               Messages::word(cells, "value", "values")));
            setResultText(Messages::noChanges());
            return *inputs.first();
        }
        return CellTransform::compute(values, inputs);
    }

    CellRule rule(const OptionValues &values, const Dataset &) const override
    {
        const int length = values.integer("Length");
        const QChar fill = values.character("Pad_With");
        if (fill.isNull()) {
            return {};
        }
        const auto pad = values.choice("Left_Right") == Left ? &QString::rightJustified : &QString::leftJustified;
        return CellRule([=](const QString &text) { return (text.*pad)(length, fill, false); });
    }
};

TRANSFORM_FACTORY(TransformPad)
