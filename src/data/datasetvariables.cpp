#include "data/dataset.h"
#include "data/variabletemplate.h"

QHash<QString, ColumnIndex> Dataset::columnVariables() const
{
    QHash<QString, ColumnIndex> variables;
    const auto addNew = [&](const QString &key, int column) {
        if (!variables.contains(key)) {
            variables.insert(key, ColumnIndex(column));
        }
    };
    for (int i = 0; i < columnCount(); ++i) {
        addNew(columnName(ColumnIndex(i)).trimmed(), i);
    }
    for (int i = 0; i < columnCount(); ++i) {
        addNew(QString::number(i + 1), i);
    }
    return variables;
}

QString Dataset::substituteVariables(
    const QHash<QString, ColumnIndex> &variables, RowIndex row, const QString &text) const
{
    return text.contains(QLatin1String("$(")) ? VariableTemplate(variables, columnCount(), text).text(*this, row)
                                              : text;
}

QString Dataset::variableForColumn(ColumnIndex column) const
{
    return QLatin1String("$(") + QString::number(toNumber(column).toInt()) + QLatin1Char(')');
}

QString Dataset::variableForName(const QString &name) const
{
    return QLatin1String("$(") + name.trimmed() + QLatin1Char(')');
}
