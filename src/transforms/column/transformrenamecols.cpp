#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QMap>

/// Gives columns other names.
class TransformRenameCols final : public Transform
{
public:
    TransformRenameCols()
        : Transform("Rename_Cols", "Rename column headers.", "headers renames")
    {
    }

private:
    OptionTable options() const override
    {
        return {Option::renameColumns("RenameColumns", "Columns").tip("Columns to be renamed.")};
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const QHash<ColumnId, QString> renames = values.renames("RenameColumns");
        QStringList names = result.columnNames();
        QMap<QString, int> counts;
        int renamed = 0;
        for (int i = 0; i < names.size(); ++i) {
            const QString name = renames.value(result.columnId(ColumnIndex(i)), names.at(i));
            renamed += name != names.at(i);
            names[i] = name;
            ++counts[name];
        }
        result.setHeader(names);
        for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
            if (it.value() > 1) {
                addInfo(QStringLiteral("%1 columns named '%2'").arg(Messages::count(it.value()), it.key()));
            }
        }
        setResultText(renamed == 0
                          ? Messages::noChanges()
                          : QStringLiteral("%1 %2 renamed").arg(Messages::count(renamed), Messages::cols(renamed)));
        return result;
    }
};

TRANSFORM_FACTORY(TransformRenameCols)
