#include "transforms/merge/keyedrows.h"

#include "transforms/frame/twoinputs.h"
#include "transforms/keys/keysuggestion.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

OptionTable KeyedRowsTransform::keyOptions(const QString &topTip, const QString &bottomTip)
{
    return {
        Option::column(QStringLiteral("Column_1"), QStringLiteral("Top key column")).ofInput(0).tip(topTip),
        Option::column(QStringLiteral("Column_2"), QStringLiteral("Bottom key column")).ofInput(1).tip(bottomTip),
        Option::flag(QStringLiteral("Case_Sensitive"), QStringLiteral("case sensitive"), true)
            .tip(QStringLiteral("Check for case sensitive text matching.")),
    };
}

bool KeyedRowsTransform::updateInputOrder(const QList<DataSource *> &)
{
    return TwoInputs::swapWhenCrossed(parameter(firstKeyParameterName()), parameter(secondKeyParameterName()));
}

void KeyedRowsTransform::adjustNewParameters(const QList<DataSource *> &, bool isNew)
{
    if (isNew) {
        suggestKeyColumns(parameter(firstKeyParameterName()), parameter(secondKeyParameterName()), false);
    }
}

QString KeyedRowsTransform::topLabel() const
{
    return parameter(firstKeyParameterName())->label();
}

QString KeyedRowsTransform::bottomLabel() const
{
    return parameter(secondKeyParameterName())->label();
}

Dataset KeyedRowsTransform::computeIncomplete(const Inputs &inputs)
{
    if (inputs.size() == 1) {
        setResultText(TwoInputs::connectSecond());
    }
    return Dataset();
}

Dataset KeyedRowsTransform::compute(const OptionValues &values, const Inputs &inputs)
{
    const ColumnIndex topColumn = values.column(firstKeyParameterName());
    const ColumnIndex bottomColumn = values.column(secondKeyParameterName());
    if (!topColumn.isValid() || !bottomColumn.isValid()) {
        setResultText(TwoInputs::connectSecond());
        return *inputs.at(0);
    }
    const Dataset &top = *inputs.at(0);
    const Dataset &bottom = *inputs.at(1);
    const bool caseSensitive = values.flag(caseSensitiveParameterName());
    return chooseRows(
        values, {top, bottom, topColumn, bottomColumn, caseSensitive, keyColumn(top.column(topColumn), caseSensitive),
                    KeyIndex(keyColumn(bottom.column(bottomColumn), caseSensitive))});
}
