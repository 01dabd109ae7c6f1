#include "transforms/frame/transform.h"
#include "transforms/options/option.h"

/// Hands its input on as it is.
class TransformClone final : public Transform
{
public:
    TransformClone()
        : Transform("Clone", "Make an identical copy. Can be useful to improve the Center pane layout.",
            "duplicates exact copies copy clones")
    {
    }

private:
    OptionTable options() const override { return {}; }

    Dataset compute(const OptionValues &, const Inputs &inputs) override
    {
        setResultText(QStringLiteral("Cloned"));
        return *inputs.first();
    }
};

TRANSFORM_FACTORY(TransformClone)
