#include "transforms/other/scriptvariables.h"

#include "data/dataset.h"

#include <algorithm>

namespace {

const QLatin1String variableStart("$(");

QString variable(const QString &name)
{
    return variableStart + name + QLatin1Char(')');
}

/// Puts the column's parameter in the place of `name`; false when the script doesn't hold it.
bool replaceVariable(ScriptVariables &variables, const QString &name, ColumnIndex column)
{
    const QString written = variable(name);
    if (!variables.script.contains(written)) {
        return false;
    }
    variables.script.replace(written, ScriptVariables::parameterName(column));
    if (!variables.columns.contains(column)) {
        variables.columns.append(column);
    }
    return true;
}

} // namespace

QString ScriptVariables::parameterName(ColumnIndex column)
{
    return QStringLiteral("col_%1_var").arg(toNumber(column).toInt());
}

ScriptVariables ScriptVariables::resolved(const QString &script, const Dataset &dataset)
{
    ScriptVariables variables;
    variables.script = script;
    const QStringList names = dataset.columnNames();
    const auto mayHoldMore = [&variables] { return variables.script.contains(variableStart); };
    for (int i = 0; i < names.size() && mayHoldMore(); ++i) {
        if (replaceVariable(variables, names.at(i), ColumnIndex(i)) && names.indexOf(names.at(i), i + 1) >= 0) {
            variables.ambiguousNames.append(names.at(i));
        }
    }
    for (int i = 0; i < names.size() && mayHoldMore(); ++i) {
        replaceVariable(variables, QString::number(i + 1), ColumnIndex(i));
    }
    std::sort(variables.columns.begin(), variables.columns.end());
    return variables;
}
