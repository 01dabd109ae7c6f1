#include "transforms/frame/messages.h"
#include "transforms/frame/twopasses.h"
#include "transforms/keys/rowkeys.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/row/groupcolumn.h"

/// Makes one row of all rows that are equal in the key columns, with a choice of aggregate for each other column.
class TransformUnique final : public Transform
{
public:
    TransformUnique()
        : Transform("Unique", "Aggregate rows that have matching values in selected column(s).",
            "flatten sumif rollup distinct group_by groupby delimiters aggregates concatenates mean averages minimum "
            "maximum keeps last first latest sums same duplicates removes unique dupe dedupe deduplication")
    {
    }

private:
    OptionTable options() const override
    {
        const QString concat = UniqueModes::text(UniqueMode::Concat);
        const QString concatDistinct = UniqueModes::text(UniqueMode::ConcatDistinct);
        return {
            Option::uniqueColumns("Column_Options", "Column options"),
            Option::text("Delim", "Concat delimiter", ",")
                .activeWhen(concatenates)
                .tip(QStringLiteral("The delimiter to use between concatenated terms for '%1' or '%2'.")
                         .arg(concat, concatDistinct)),
            Option::flag("Concat_Ignore_Empty", "ignore empty values for concat")
                .activeWhen(concatenates)
                .tip(QStringLiteral("Check to ignore any empty values for '%1' or '%2'.").arg(concat, concatDistinct)),
            Option::flag("Count", "add count column")
                .tip("Check to add an additional column that counts the number of rows that have been replaced with "
                     "one unique row."),
            Option::flag("Case_Sensitive", "case sensitive", true)
                .tip(QStringLiteral("Check for case sensitive '%1' matching.")
                         .arg(UniqueModes::text(UniqueMode::KeepUnique))),
            Option::flag("Drilldown", "allow drilldown").tip("Allow double click to drilldown in the data table."),
        };
    }

    static bool concatenates(const OptionValues &values)
    {
        const QList<int> modes = values.uniqueColumns("Column_Options").values();
        return modes.contains(static_cast<int>(UniqueMode::Concat))
               || modes.contains(static_cast<int>(UniqueMode::ConcatDistinct));
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const QVector<UniqueMode> modes = modesOf(values, input);
        if (!modes.contains(UniqueMode::KeepUnique)) {
            Dataset result = input;
            result.clearDrilldown();
            setResultText(Messages::noChanges());
            return result;
        }
        const RowGroups groups = grouped(input, modes, values.flag("Case_Sensitive"));
        Dataset result = aggregated(input, groups, modes, {values.text("Delim"), values.flag("Concat_Ignore_Empty")});
        if (values.flag("Count")) {
            const QStringList names = input.columnNames() << QStringLiteral("Count");
            result.appendColumn(groupSizes(groups));
            result.setHeader(names);
        }
        if (values.flag("Drilldown")) {
            addDrilldown(result, groups);
        }
        const int removed = input.rowCount() - result.rowCount();
        setResultText(
            removed == 0 ? Messages::noChanges() : QStringLiteral("%1 row(s) removed").arg(Messages::count(removed)));
        return result;
    }

    /// What becomes of each column; "Keep first" where nothing is said.
    static QVector<UniqueMode> modesOf(const OptionValues &values, const Dataset &input)
    {
        const QHash<ColumnId, int> chosen = values.uniqueColumns("Column_Options");
        QVector<UniqueMode> modes;
        for (ColumnId id : input.columnIds()) {
            modes.append(static_cast<UniqueMode>(chosen.value(id, static_cast<int>(UniqueMode::KeepFirst))));
        }
        return modes;
    }

    RowGroups grouped(const Dataset &input, const QVector<UniqueMode> &modes, bool caseSensitive)
    {
        QVector<ColumnIndex> columns;
        for (int i = 0; i < modes.size(); ++i) {
            if (modes.at(i) == UniqueMode::KeepUnique) {
                columns.append(ColumnIndex(i));
            }
        }
        RowKeys keys(input, columns, caseSensitive);
        for (int row = 0; row < input.rowCount(); ++row) {
            reportPass(*this, 0, row, input.rowCount());
            keys.add(row);
        }
        return RowGroups(keys.numbers(), keys.count());
    }

    Dataset aggregated(const Dataset &input, const RowGroups &groups, const QVector<UniqueMode> &modes,
        const Concatenation &concatenation)
    {
        Dataset result = input.withoutRows();
        result.setRowCount(groups.count());
        for (int i = 0; i < modes.size(); ++i) {
            if (input.hasRows()) {
                emit processed(0.5 + 0.5 * i / modes.size());
            }
            const ColumnIndex column(i);
            result.setColumn(column, groupColumn(input, column, groups, modes.at(i), concatenation));
        }
        return result;
    }

    static void addDrilldown(Dataset &result, const RowGroups &groups)
    {
        for (int group = 0; group < groups.count(); ++group) {
            for (int row : groups.rows(group)) {
                result.addDrilldownRow(RowIndex(group), ColumnIndex(), RowIndex(row));
            }
        }
    }
};

TRANSFORM_FACTORY(TransformUnique)
