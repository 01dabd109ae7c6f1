#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <numeric>

/// Moves the top rows into the header.
class TransformHeader final : public Transform
{
    enum Mode { Overwrite, Append }; // the choices of Mode, in their order

public:
    TransformHeader()
        : Transform("Header", "Move rows to the header.", "headers names columns moves overwrites appends")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::integer("Num_Rows", "Top rows to move", 1)
                .limits(0, 999999999)
                .nonZero()
                .tip("Number of rows to move from the top of the dataset to the header."),
            Option::selection("Mode", "Existing header", {"Overwrite", "Append"})
                .tip("Whether to overwrite or append to the existing header."),
            Option::text("Delimiter", "Delimiter")
                .notRequired()
                .activeWhen([](const OptionValues &values) {
                    return values.choice("Mode") == Append || values.integer("Num_Rows") > 1;
                })
                .tip("Text to separate elements of each header if moving multiple rows or appending."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        const Dataset &input = *inputs.first();
        const int moved = qMin(values.integer("Num_Rows"), input.rowCount());
        if (moved < 1) {
            setResultText(Messages::noChanges());
            return input;
        }
        QVector<int> kept(input.rowCount() - moved);
        std::iota(kept.begin(), kept.end(), moved);
        Dataset result = input.withRows(kept);
        result.setHeader(newNames(values, input, moved));
        QStringList parts;
        if (result.columnNames() != input.columnNames()) {
            parts.append(QStringLiteral("Header names updated"));
        }
        parts.append(Messages::rowsRemoved(moved));
        setResultText(parts.join(QStringLiteral(", ")));
        return result;
    }

    QStringList newNames(const OptionValues &values, const Dataset &input, int moved)
    {
        const QString delimiter = values.text("Delimiter");
        const bool append = values.choice("Mode") == Append;
        QStringList names;
        for (int i = 0; i < input.columnCount(); ++i) {
            reportRow(i, input.columnCount());
            QStringList texts;
            const QString present = input.header().value(i);
            if (append && !present.isEmpty()) {
                texts.append(present);
            }
            for (int row = 0; row < moved; ++row) {
                const Cell &cell = input.cell(RowIndex(row), ColumnIndex(i));
                if (!cell.isEmpty()) {
                    texts.append(cell.text());
                }
            }
            names.append(texts.join(delimiter));
        }
        return names;
    }
};

TRANSFORM_FACTORY(TransformHeader)
