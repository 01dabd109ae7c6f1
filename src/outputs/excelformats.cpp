#include "outputs/excelformats.h"

#include "data/dataset.h"
#include "data/values.h"
#include "outputs/outputenums.h"

namespace {

/// Non-empty values that a search for a date format looks at.

int statedFormat(ColumnId column, int mode, const QHash<ColumnId, int> &chosen)
{
    switch (mode) {
    case ExcelFormatMode::General:
        return ExcelColumnFormat::General;
    case ExcelFormatMode::Manual:
        return chosen.value(column, ExcelColumnFormat::Automatic);
    default:
        return ExcelColumnFormat::Automatic;
    }
}

int formatOf(Dataset::ColumnType type)
{
    switch (type) {
    case Dataset::Numeric:
        return ExcelColumnFormat::Number;
    case Dataset::Boolean:
        return ExcelColumnFormat::Boolean;
    case Dataset::Date:
        return ExcelColumnFormat::Date;
    case Dataset::Time:
        return ExcelColumnFormat::Time;
    default:
        return ExcelColumnFormat::Text;
    }
}

} // namespace

QStringList ExcelColumnFormat::labels()
{
    return {QStringLiteral("Automatic"), QStringLiteral("Boolean"), QStringLiteral("Date"), QStringLiteral("General"),
        QStringLiteral("Number"), QStringLiteral("Text"), QStringLiteral("Formula"), QStringLiteral("Time"),
        QStringLiteral("Hyperlink")};
}

QString ExcelColumnFormat::label(int format)
{
    return labels().value(format);
}

ExcelFormats automaticExcelFormats(const Dataset &dataset, int mode, const QHash<ColumnId, int> &chosen)
{
    const QStringList dates = dateFormats();
    ExcelFormats result;
    for (const ColumnIndex column : dataset.allColumns()) {
        int format = statedFormat(dataset.columnId(column), mode, chosen);
        QString dateFormat;
        if (format == ExcelColumnFormat::Date) {
            dataset.isColumnDate(column, dates, &dateFormat);
        } else if (format == ExcelColumnFormat::Automatic) {
            format = formatOf(dataset.columnType(column, dates, &dateFormat, false));
            result.automatic.append(column.toInt());
        }
        result.formats.insert(column.toInt(), format);
        if (format == ExcelColumnFormat::Date) {
            result.dateFormats.insert(column.toInt(), dateFormat);
        }
    }
    return result;
}
