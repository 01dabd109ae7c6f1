#include "transforms/other/scriptargument.h"

#include "data/dataset.h"

ScriptArgument::Type ScriptArgument::typeOf(const Dataset &dataset, ColumnIndex column)
{
    constexpr int sample = 100;
    if (dataset.isColumnNumeric(column, false, sample)) {
        return Number;
    }
    return dataset.isColumnBoolean(column) ? Boolean : String;
}

QString ScriptArgument::typeName(Type type)
{
    switch (type) {
    case Number:
        return QStringLiteral("Number");
    case Boolean:
        return QStringLiteral("Boolean");
    case String:
        break;
    }
    return QStringLiteral("String");
}

ScriptArgument::ScriptArgument(const Dataset &dataset, ColumnIndex column, Type type)
    : m_cells(dataset.column(column))
    , m_columnName(dataset.columnName(column))
    , m_type(type)
{
}

QJSValue ScriptArgument::value(int row, bool *ok) const
{
    const QString text = m_cells.at(row).text();
    *ok = true;
    if (m_type == String) {
        return QJSValue(text);
    }
    if (m_type == Number) {
        const double number = text.toDouble(ok);
        return *ok ? QJSValue(number) : QJSValue();
    }
    const QString trimmed = text.trimmed();
    const bool isTrue = trimmed == QLatin1String("true");
    *ok = isTrue || trimmed == QLatin1String("false");
    return *ok ? QJSValue(isTrue) : QJSValue();
}
