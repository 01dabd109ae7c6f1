#include "outputs/jsontypes.h"

#include "data/dataset.h"
#include "outputs/outputenums.h"

namespace {

int statedType(ColumnId column, int mode, const QHash<ColumnId, int> &chosen)
{
    switch (mode) {
    case JsonTypeMode::String:
        return JsonColumnType::String;
    case JsonTypeMode::Manual:
        return chosen.value(column, JsonColumnType::Automatic);
    default:
        return JsonColumnType::Automatic;
    }
}

int typeOfValues(const Dataset &dataset, ColumnIndex column)
{
    if (dataset.isColumnJsonNumber(column)) {
        return JsonColumnType::Number;
    }
    return dataset.isColumnBoolean(column) ? JsonColumnType::Boolean : JsonColumnType::String;
}

} // namespace

QStringList JsonColumnType::labels()
{
    return {QStringLiteral("Automatic"), QStringLiteral("Boolean"), QStringLiteral("Number"), QStringLiteral("String"),
        QStringLiteral("Raw data")};
}

QString JsonColumnType::label(int type)
{
    return labels().value(type);
}

JsonColumnTypes automaticJsonTypes(const Dataset &dataset, int mode, const QHash<ColumnId, int> &chosen)
{
    JsonColumnTypes types;
    for (const ColumnIndex column : dataset.allColumns()) {
        const int stated = statedType(dataset.columnId(column), mode, chosen);
        types.insert(column.toInt(), stated == JsonColumnType::Automatic ? typeOfValues(dataset, column) : stated);
    }
    return types;
}
