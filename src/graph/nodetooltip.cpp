#include "data/values.h"
#include "files/filesheet.h"
#include "graph/ionode.h"
#include "graph/nodetext.h"

#include <QDir>
#include <QFileInfo>

// What a node says of itself: log line, tool tip, information rows.

namespace {

constexpr int tipCellChars = 512;
constexpr int tipChars = 2048;

QString rowsHtml(const InfoRows &rows)
{
    QString html;
    for (const InfoRow &row : rows) {
        if (!row.second.isEmpty()) {
            const QString value = row.second.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br/>"));
            html += QStringLiteral("<tr><td><b>%1</b></td><td>%2</td></tr>").arg(row.first.toHtmlEscaped(), value);
        }
    }
    return QStringLiteral("<table>") + html + QStringLiteral("</table>");
}

QString timeText(const QDateTime &time)
{
    return time.isValid() ? dateTimeText(time) : QString();
}

} // namespace

QString Node::logLine(bool detail) const
{
    QStringList parts{QStringLiteral("'%1'").arg(listName()), QStringLiteral("Id=%1").arg(m_id)};
    if (detail) {
        parts.append(roundedSizeText());
        parts.append(NodeText::duration(m_processingMs));
        parts.append(QStringLiteral("%1 warning(s)").arg(formatInteger(warningCount(), true)));
    }
    const QString status = statusMessage();
    if (!status.isEmpty()) {
        parts.append(QStringLiteral("[%1]").arg(status));
    }
    parts.append(stateText());
    return QStringLiteral("  %1: %2").arg(kindName(), parts.join(QStringLiteral(", ")));
}

QString Node::toolTipHtml(bool detail) const
{
    InfoRows rows = generalRows();
    if (!detail) {
        return rowsHtml(rows + commentRows());
    }
    rows += kindRows();
    rows += optionRows();
    rows += commentRows();
    const QString table = rowsHtml(rows);
    return m_dataset.hasColumns() ? table + dataHtml(true, tipCellChars, tipChars) : table;
}

InfoRows Node::generalRows() const
{
    const qint64 values = static_cast<qint64>(rowCount()) * columnCount();
    return {{QStringLiteral("Name"), listName()}, {QStringLiteral("Status"), stateText()},
        {QStringLiteral("Size"), displaySizeText()}, {QStringLiteral("Type"), kindName()},
        {QStringLiteral("Dataset columns"), formatInteger(columnCount(), true)},
        {QStringLiteral("Dataset rows"), formatInteger(rowCount(), true)},
        {QStringLiteral("Dataset values"), formatInteger(values, true)}};
}

InfoRows Node::commentRows() const
{
    return {{QStringLiteral("Comment"), m_comment}, {QStringLiteral("Warnings"), warningsText()},
        {QStringLiteral("Info"), infosText()}, {QStringLiteral("Last processed"), timeText(m_lastProcessed)},
        {QStringLiteral("Processing time"),
            m_lastProcessed.isValid() ? NodeText::duration(m_processingMs) : QString()}};
}

InfoRows Node::fileRows(const QString &path)
{
    const QFileInfo file(path);
    InfoRows rows{{QStringLiteral("File location"), absoluteNativePath(path)},
        {QStringLiteral("File readable"), NodeText::yesNo(file.isReadable())},
        {QStringLiteral("File writable"), NodeText::yesNo(file.isWritable())}};
    if (file.exists()) {
        rows += {{QStringLiteral("File size"), QLocale().formattedDataSize(file.size())},
            {QStringLiteral("File created"), timeText(file.birthTime())},
            {QStringLiteral("File modified"), timeText(file.lastModified())}};
    }
    return rows;
}

InfoRows Node::folderRows(const QString &path, const QString &mask, bool recurse)
{
    const QFileInfo folder(path);
    return {{QStringLiteral("Folder location"), absoluteNativePath(path)},
        {QStringLiteral("Folder readable"), NodeText::yesNo(folder.isReadable())},
        {QStringLiteral("Folder created"), timeText(folder.birthTime())},
        {QStringLiteral("Folder modified"), timeText(folder.lastModified())},
        {QStringLiteral("And sub-folders"), NodeText::yesNo(recurse)}, {QStringLiteral("Matching files"), mask}};
}

QVariantList Node::summaryRow() const
{
    return {m_id, m_alias, m_comment, connections(Direction::Both).size(), static_cast<int>(state())};
}

QStringList Node::summaryStrings() const
{
    QStringList texts;
    const InfoRows rows = generalRows() + kindRows() + optionRows() + commentRows();
    for (const InfoRow &row : rows) {
        texts.append(row.second);
    }
    return texts;
}
