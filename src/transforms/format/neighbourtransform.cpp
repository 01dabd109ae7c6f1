#include "transforms/format/neighbourtransform.h"

#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

static const char *const sameKeyChoice = "Rows with same key value";

OptionTable NeighbourTransform::options() const
{
    return {
        Option::columns("Columns"),
        Option::selection("Direction", "Direction", {"Down", "Right", "Up", "Left"})
            .tip(QString::fromLatin1(m_tips.direction).arg(QStringLiteral("Down"))),
        Option::selection("For", "For", {"All rows", sameKeyChoice})
            .activeWhen("Direction", {"Down", "Up"})
            .tip(QString::fromLatin1(m_tips.sameKey).arg(QLatin1String(sameKeyChoice))),
        Option::column("Key_Column", "Key column")
            .activeWhen("Direction", {"Down", "Up"})
            .activeWhen("For", {sameKeyChoice})
            .tip(QString::fromLatin1(m_tips.keyColumn)),
    };
}

const Cell *NeighbourTransform::keyCells(const OptionValues &values, const Dataset &input)
{
    const ColumnIndex column = values.column("Key_Column");
    const bool counts = values.choice("For") == 1 && column.isValid();
    return counts ? input.column(column).cells.constData() : nullptr;
}
