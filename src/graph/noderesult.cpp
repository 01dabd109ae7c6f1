#include "graph/noderesult.h"

#include "graph/nodetext.h"
#include "settings/settings.h"

// Table

QString NodeResult::columnsDescription(const QList<ColumnId> &ids, int maxNames) const
{
    QStringList names;
    for (const ColumnId &id : ids) {
        const ColumnIndex column = m_dataset.columnIndexOfId(id);
        if (!column.isValid()) {
            continue;
        }
        if (names.size() == maxNames) {
            names.append(QStringLiteral("..."));
            break;
        }
        names.append(m_dataset.columnName(column));
    }
    return names.join(QStringLiteral(", "));
}

QStringList NodeResult::columnsSummary() const
{
    QStringList lines;
    const QStringList names = columnNamesList();
    for (int i = 0; i < names.size(); ++i) {
        lines.append(m_dataset.hasHeader() ? QStringLiteral("%1. %2").arg(QString::number(i + 1), names.at(i))
                                           : QString::number(i + 1));
    }
    return lines;
}

QString NodeResult::sizeText() const
{
    return NodeText::size(rowCount(), columnCount());
}

QString NodeResult::roundedSizeText() const
{
    return NodeText::roundedSize(rowCount(), columnCount());
}

QString NodeResult::dataHtml(bool showHeader, int maxCellChars, int maxChars) const
{
    return NodeText::tableHtml(m_dataset, showHeader, maxCellChars, maxChars);
}

// State

QString NodeResult::stateText(NodeState state)
{
    switch (state) {
    case NodeState::NeedsProcessing:
        return QStringLiteral("Needs updating");
    case NodeState::Processing:
        return QStringLiteral("Updating");
    case NodeState::Processed:
        return QStringLiteral("Up to date");
    case NodeState::Failed:
        return QStringLiteral("Error");
    }
    return QString();
}

NodeStatusIcon NodeResult::statusIcon() const
{
    if (m_isPreview) {
        return NodeStatusIcon::UpToDate;
    }
    switch (state()) {
    case NodeState::NeedsProcessing:
        return NodeStatusIcon::NeedsUpdate;
    case NodeState::Processing:
        return NodeStatusIcon::Processing;
    case NodeState::Failed:
        return NodeStatusIcon::Error;
    case NodeState::Processed:
        break;
    }
    // A warning on an empty result tells more than its emptiness.
    if (hasWarnings() && Settings::current().showWarnings()) {
        return NodeStatusIcon::Warning;
    }
    return isEmpty() ? NodeStatusIcon::Empty : NodeStatusIcon::UpToDate;
}

QString NodeResult::statusMessage() const
{
    if (state() != NodeState::Failed && state() != NodeState::Processed) {
        return QString();
    }
    // An empty table says why it is empty, where the node knows.
    const QString result = resultText();
    return result.isEmpty() && isEmpty() && !m_isPreview ? QStringLiteral("No data") : result;
}
