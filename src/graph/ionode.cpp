#include "graph/ionode.h"

#include "data/values.h"
#include "platform/paths.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>

IONode::IONode(int id)
    : Node(id)
{
}

void IONode::setPath(const QString &path, const QString &sheet)
{
    m_path = path;
    m_sheetName = sheet;
}

QString IONode::absoluteNativePath(const QString &path)
{
    return path.isEmpty() ? QString() : QDir::toNativeSeparators(platform::resolvedPath(path));
}

QString IONode::fileSheetText(const QString &path, const QString &sheet)
{
    const QString file = QDir::toNativeSeparators(path);
    return sheet.isEmpty() ? file : QStringLiteral("%1[%2]").arg(file, sheet);
}

IONode::FileSheet IONode::splitFileSheet(const QString &text)
{
    const int bracket = text.lastIndexOf(QLatin1Char('['));
    // What a sheet's name may hold is for the workbook to say; a slash in it begins no folder.
    const bool hasSheet = text.endsWith(QLatin1Char(']')) && bracket > text.lastIndexOf(QLatin1Char(']'), -2);
    if (!hasSheet) {
        return {text, QString()};
    }
    return {text.left(bracket), text.mid(bracket + 1, text.size() - bracket - 2)};
}

QVariantList IONode::summaryRow() const
{
    QVariantList row = Node::summaryRow();
    row << m_medium << m_fileType << m_path << m_sheetName << m_delimiterKind << m_customDelimiter << m_encoding;
    return row;
}

void IONode::warnOfDuplicateHeaderNames()
{
    if (!m_dataset.hasHeader()) {
        return;
    }
    QMap<QString, int> counts;
    for (const QString &name : m_dataset.header()) {
        if (!name.isEmpty()) { // several columns without a name have none in common
            ++counts[name];
        }
    }
    QStringList lines;
    for (auto it = counts.constBegin(); it != counts.constEnd(); ++it) {
        if (it.value() > 1) {
            lines.append(QStringLiteral("'%1' occurs %2 times").arg(it.key(), formatInteger(it.value(), true)));
        }
    }
    if (!lines.isEmpty()) {
        m_warnings.append(QStringLiteral("Duplicate column header names:"));
        m_warnings += lines;
    }
}
