#include "data/numberreader.h"
#include "data/realwriter.h"
#include "transforms/frame/conversiontransform.h"
#include "transforms/frame/messages.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"
#include "transforms/other/unittable.h"

/// Converts the numbers of the selected columns from one unit of measurement to another.
class TransformUnits final : public ConversionTransform
{
public:
    TransformUnits()
        : ConversionTransform("Units", "Change units of time, length, temperature etc.",
            "dimensions from volumes speed velocity pressures power weights masses energy areas angles "
            "temperatures lengths times imperial scientific conversions converter units")
    {
    }

private:
    static constexpr int timeDimension = 8;

    static QString fromKey(int dimension) { return QStringLiteral("UnitsFrom") + QString::number(dimension); }
    static QString toKey(int dimension) { return QStringLiteral("UnitsTo") + QString::number(dimension); }

    OptionTable options() const override
    {
        QStringList names;
        for (const Dimension &dimension : dimensions()) {
            names.append(QString::fromLatin1(dimension.name));
        }
        OptionTable table{
            Option::columns("Columns"),
            Option::selection("Dimension", "Dimension", names, timeDimension)
                .tip("Select the dimension for the units."),
        };
        for (int i = 0; i < names.size(); ++i) {
            const Dimension &dimension = dimensions()[static_cast<size_t>(i)];
            const QStringList units = dimension.unitNames();
            const int first = units.indexOf(QString::fromLatin1(dimension.units.front().name));
            table.append(Option::selection(fromKey(i), "From", units, first)
                             .tip("Units from.")
                             .activeWhen("Dimension", {names.at(i)}));
            table.append(Option::selection(toKey(i), "To", units, first)
                             .tip("Units to.")
                             .activeWhen("Dimension", {names.at(i)}));
        }
        return table;
    }

    Plan plan(const OptionValues &values, const Dataset &, const QVector<ColumnIndex> &columns) override
    {
        const int code = values.choice("Dimension");
        const Dimension &dimension = dimensions()[static_cast<size_t>(code)];
        const Unit *from = dimension.find(values.choiceText(fromKey(code)));
        const Unit *to = dimension.find(values.choiceText(toKey(code)));
        if (!from || !to || from == to) {
            return {};
        }
        const Rule rule = [from, to, reader = NumberReader(false, false), writer = RealWriter()](
                              const Cell &cell, TextBuffer &out) {
            bool ok = false;
            const double value = reader.read(cell, &ok);
            if (ok) {
                writer.write(converted(value, *from, *to), out);
            }
            return ok;
        };
        Plan plan;
        plan.rules.assign(static_cast<size_t>(columns.size()), rule);
        return plan;
    }

    QString unreadHeading(const OptionValues &, qint64 count) const override
    {
        return QStringLiteral("%1 non-numeric %2:")
            .arg(Messages::count(count), Messages::word(count, "value", "values"));
    }

    QString outcome(const Counts &counts) const override
    {
        return counts.isAnyChanged() ? QStringLiteral("%1 changed, %2 unchanged, %3 non-numeric")
                                           .arg(Messages::count(counts.changed), Messages::count(counts.unchanged),
                                               Messages::count(counts.unread))
                                     : Messages::noChanges();
    }
};

TRANSFORM_FACTORY(TransformUnits)
