#include "data/columnbuilder.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QRandomGenerator>
#include <QUuid>
#include <array>

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

    static QUuid::StringFormat form(Format format)
    {
        switch (format) {
        case WithoutBraces:
            return QUuid::WithoutBraces;
        case OnlyDigits:
            return QUuid::Id128;
        default:
            return QUuid::WithBraces;
        }
    }

    using Bits = std::array<quint32, 4>;

    /// A random identifier of version 4 as RFC 4122 has it.
    static QUuid identifier(const Bits &bits)
    {
        const auto byte = [&bits](
                              int i) { return static_cast<uchar>(bits[2 + static_cast<size_t>(i) / 4] >> i % 4 * 8); };
        const auto version = static_cast<ushort>((bits[1] >> 16 & 0x0FFF) | 0x4000);
        const auto variant = static_cast<uchar>((byte(0) & 0x3F) | 0x80);
        return QUuid(bits[0], static_cast<ushort>(bits[1]), version, variant, byte(1), byte(2), byte(3), byte(4),
            byte(5), byte(6), byte(7));
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const QUuid::StringFormat format = form(values.choiceAs<Format>("Format"));
        const int rowCount = result.rowCount();
        ColumnBuilder column(rowCount);
        std::array<Bits, progressStep> bits;
        for (int row = 0; row < rowCount; ++row) {
            reportRow(row, rowCount);
            if (row % progressStep == 0) {
                // The system is asked for many at a time: each question costs more than the rest of the work.
                QRandomGenerator::system()->fillRange(bits.front().data(), bits.front().size() * bits.size());
            }
            const QByteArray text = identifier(bits[static_cast<size_t>(row % progressStep)]).toByteArray(format);
            column.append(text.constData(), text.size());
        }
        result.addNamedColumn(column.take(), values.text("New_Name"));
        setResultText(Messages::colsAdded(1));
        return result;
    }
};

TRANSFORM_FACTORY(TransformUUID)
