#pragma once

#include "data/dataset.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

/// What the kinds share that add one column, named by themselves or by the user.
namespace AddedColumn {

/// The two options that name the column; `name` is what a person starts from.
inline OptionTable nameOptions(const QString &name)
{
    return {
        Option::flag(QStringLiteral("Auto_New_Name"), QStringLiteral("automatic new column name"), true)
            .tip(QStringLiteral("Uncheck to manually set the new column name.")),
        Option::text(QStringLiteral("New_Name"), QStringLiteral("New column name"), name)
            .activeWhenFlag(QStringLiteral("Auto_New_Name"), false)
            .tip(QStringLiteral("The name for the new column.")),
    };
}

/// The two options that name the column, and `others` behind them.
inline OptionTable withNameOptions(std::initializer_list<Option> others, const QString &name)
{
    OptionTable table = nameOptions(name);
    for (const Option &option : others) {
        table.append(option);
    }
    return table;
}

/// The user's name, or `automatic` while that is asked for.
inline QString name(const OptionValues &values, const QString &automatic)
{
    return values.flag(QStringLiteral("Auto_New_Name")) ? automatic : values.text(QStringLiteral("New_Name"));
}

/// Adds the column with its name; columns without a name get their numbers as names.
inline void add(Dataset &dataset, const CellColumn &cells, const QString &name)
{
    dataset.appendColumn(cells);
    QStringList names = dataset.columnNames();
    if (!name.isEmpty()) {
        names.last() = name;
    }
    dataset.setHeader(names);
}

} // namespace AddedColumn
