#include "graph/ionode.h"

#include "data/values.h"

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
