#include "transforms/messages.h"
#include "transforms/newcolumn.h"
#include "transforms/option.h"
#include "transforms/optionvalues.h"
#include "transforms/transform.h"

#include <QUuid>

/// Adds a column of random identifiers.
class TransformUUID final : public Transform
{
    enum Format { Standard, WithoutBraces, OnlyDigits }; // the choices of Format, in their order

public:
    TransformUUID()
        : Transform("UUID", "Add a new column, filled with Universally Unique Identifiers.",
            "globally guid identifier universally unique uuid")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::text("New_Name", "New column name", "UUID").tip("The name for the new column."),
            Option::selection("Format", "Format", {"Standard", "Without braces", "Without braces or dashes"})
                .tip("Format of the UUIDs."),
        };
    }

    static QUuid::StringFormat form(int choice)
    {
        switch (choice) {
        case WithoutBraces:
            return QUuid::WithoutBraces;
        case OnlyDigits:
            return QUuid::Id128;
        default:
            return QUuid::WithBraces;
        }
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const QUuid::StringFormat format = form(values.choice("Format"));
        const int rowCount = result.rowCount();
        NewColumn column(rowCount);
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            const QByteArray text = QUuid::createUuid().toByteArray(format);
            column.append(text.constData(), text.size());
        }
        result.addNamedColumn(column.take(), values.text("New_Name"));
        setResultText(Messages::colsAdded(1));
        return result;
    }
};

TRANSFORM_FACTORY(TransformUUID)
