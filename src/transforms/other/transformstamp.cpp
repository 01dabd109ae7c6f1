#include "data/columnbuilder.h"
#include "platform/username.h"
#include "transforms/frame/documentcontext.h"
#include "transforms/frame/messages.h"
#include "transforms/frame/transform.h"
#include "transforms/options/option.h"
#include "transforms/options/optionvalues.h"

#include <QDateTime>
#include <QSysInfo>

/// Adds the date and time of the run, as a row or as a column.
class TransformStamp final : public Transform
{
    enum Position { AtStart, AtEnd, EveryRow }; // the choices of Position, in their order

public:
    TransformStamp()
        : Transform("Stamp", "Add a stamp with processing date, time and other information.",
            "created datestamp timestamp stamps")
    {
    }

private:
    OptionTable options() const override
    {
        return {
            Option::text("Format", "Format", "-- d/M/yyyy HH:mm:ss --")
                .tip("The time/date stamp format, e.g. yyyy-MM-dd HH:mm:ss.\nClick the ? button for more details."),
            Option::selection("Position", "Position", {"At start", "At end", "Every row"})
                .tip("The position of the time/date stamp."),
            Option::text("New_Name", "New column name", "Stamp")
                .activeWhen("Position", {"Every row"})
                .tip("The name for the new column."),
        };
    }

    Dataset compute(const OptionValues &values, const Inputs &inputs) override
    {
        Dataset result = *inputs.first();
        const int position = values.choice("Position");
        const QString stamp = stampText(values.text("Format"));
        if (result.isEmpty()) {
            if (position == EveryRow) {
                setResultText(Messages::noChanges());
                return result;
            }
            result.setSize(1, 1);
            result.setValue(RowIndex(0), ColumnIndex(0), stamp);
            setResultText(QStringLiteral("Stamp added"));
            return result;
        }
        if (position == EveryRow) {
            result.addNamedColumn(ColumnBuilder::filled(stamp, result.rowCount()), values.text("New_Name"));
            setResultText(Messages::colsAdded(1));
            return result;
        }
        if (position == AtStart) {
            result.prependRow({stamp}, true);
        } else {
            result.appendRow({stamp}, true);
        }
        setResultText(QStringLiteral("1 row added"));
        return result;
    }

    static QString stampText(const QString &format)
    {
        const int mark = format.indexOf(QLatin1Char('!'));
        QString text = QDateTime::currentDateTime().toString(format.left(mark));
        text.replace(QStringLiteral("$(f)"), DocumentContext::path());
        text.replace(QStringLiteral("$(c)"), QSysInfo::machineHostName().replace(QLatin1Char('.'), QLatin1Char('_')));
        text.replace(QStringLiteral("$(u)"), platform::userName());
        return mark < 0 ? text : text + format.mid(mark + 1);
    }
};

TRANSFORM_FACTORY(TransformStamp)
