#include "inputs/rowwidths.h"

#include "data/values.h"

QStringList RowWidths::report() const
{
    QStringList lines;
    if (m_widths.size() < 2) {
        return lines;
    }
    lines.append(QStringLiteral("Number of columns per row vary:"));
    for (const auto &[width, entry] : m_widths) {
        const QString has = entry.rows == 1 ? QStringLiteral("row has") : QStringLiteral("rows have");
        const QString value = width == 1 ? QStringLiteral("value") : QStringLiteral("values");
        lines.append(QStringLiteral("%1 input %2 %3 %4: E.g. input row %5")
                         .arg(formatInteger(entry.rows, true), has, formatInteger(width, true), value,
                             formatInteger(entry.firstRow, true)));
    }
    return lines;
}
