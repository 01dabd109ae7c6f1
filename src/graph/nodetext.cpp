#include "graph/nodetext.h"

#include "data/dataset.h"
#include "data/values.h"
#include "transforms/frame/messages.h"

#include <QLocale>

namespace {

constexpr int roundingStep = 1000;

int rounded(int count)
{
    return count < roundingStep ? count : qRound(static_cast<double>(count) / roundingStep) * roundingStep;
}

QString sizeOf(int rows, int columns, int shownRows, int shownColumns)
{
    return QStringLiteral("%1 %2 x %3 %4")
        .arg(formatInteger(shownRows, true), Messages::rows(rows), formatInteger(shownColumns, true),
            Messages::cols(columns));
}

QString htmlCell(const QString &tag, const QString &text, int maxChars)
{
    return QStringLiteral("<%1>%2</%1>").arg(tag, ellipsized(text, maxChars).toHtmlEscaped());
}

} // namespace

QString NodeText::duration(qint64 milliseconds)
{
    const QLocale locale;
    return milliseconds <= 0 ? QStringLiteral("<%1 second(s)").arg(locale.toString(0.001, 'g', 6))
                             : QStringLiteral("%1 second(s)")
                                   .arg(locale.toString(static_cast<double>(milliseconds) / 1000.0, 'g', 6));
}

QString NodeText::yesNo(bool value)
{
    return value ? QStringLiteral("Yes") : QStringLiteral("No");
}

QString NodeText::size(int rows, int columns)
{
    return sizeOf(rows, columns, rows, columns);
}

QString NodeText::roundedSize(int rows, int columns)
{
    return sizeOf(rows, columns, rounded(rows), rounded(columns));
}

QString NodeText::tableHtml(const Dataset &dataset, bool showHeader, int maxCellChars, int maxChars)
{
    QString html = QStringLiteral("<table>");
    const auto appendLine = [&](const QString &tag, auto textOf) {
        html += QStringLiteral("<tr>");
        for (int column = 0; column < dataset.columnCount() && html.size() < maxChars; ++column) {
            html += htmlCell(tag, textOf(ColumnIndex(column)), maxCellChars);
        }
        html += QStringLiteral("</tr>");
    };
    if (showHeader && dataset.hasHeader()) {
        appendLine(QStringLiteral("th"), [&](ColumnIndex column) { return dataset.columnName(column); });
    }
    for (int row = 0; row < dataset.rowCount() && html.size() < maxChars; ++row) {
        appendLine(QStringLiteral("td"), [&](ColumnIndex column) { return dataset.value(RowIndex(row), column); });
    }
    return html + QStringLiteral("</table>");
}
