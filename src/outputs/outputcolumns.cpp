#include "outputs/outputcolumns.h"

#include "data/dataset.h"

#include <algorithm>

namespace {

constexpr QChar separator(0x1F);

QList<ColumnId> sortedKeys(const OutputColumns::Choices &choices)
{
    QList<ColumnId> keys = choices.keys();
    std::sort(keys.begin(), keys.end());
    return keys;
}

ColumnId columnOfText(const QString &text, const Dataset &upstream)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    const ColumnIndex column = isNumber ? toIndex(ColumnNumber(number)) : upstream.columnIndexOfName(text);
    return column.isValid() ? upstream.columnId(column) : ColumnId();
}

OutputColumns::Choices choicesOfText(const QString &text, const Dataset &upstream)
{
    const QChar by = text.contains(separator) ? separator : QLatin1Char('^');
    const QStringList numbers = text.split(by, Qt::SkipEmptyParts);
    OutputColumns::Choices choices;
    for (int i = 0; i < numbers.size() && i < upstream.columnCount(); ++i) {
        const int choice = numbers.at(i).toInt();
        if (choice > 0) {
            choices.insert(upstream.columnId(ColumnIndex(i)), choice);
        }
    }
    return choices;
}

QString textOfChoices(const OutputColumns::Choices &choices, const Dataset &upstream)
{
    QStringList numbers;
    if (!choices.isEmpty()) {
        for (const ColumnId id : upstream.columnIds()) {
            numbers.append(QString::number(choices.value(id)));
        }
    }
    return numbers.join(separator);
}

OutputColumns::Choices remapped(const OutputColumns::Choices &choices, const QHash<ColumnId, ColumnId> &map)
{
    OutputColumns::Choices result;
    for (auto it = choices.cbegin(); it != choices.cend(); ++it) {
        result.insert(map.value(it.key(), it.key()), it.value());
    }
    return result;
}

QVariantList valuesOf(const OutputColumns::Choices &choices)
{
    QVariantList values;
    for (const ColumnId id : sortedKeys(choices)) {
        values << id.nodeId() << id.serial() << choices.value(id);
    }
    return values;
}

bool hasTable(const Dataset *upstream)
{
    return upstream && upstream->hasColumns();
}

} // namespace

void OutputColumns::setMultiFileColumn(ColumnId column)
{
    m_multiFileColumn = column;
    m_filePending = false;
    m_storedMultiFileColumn.clear();
}

void OutputColumns::setExcelFormats(const Choices &formats)
{
    m_excelFormats = formats;
    m_formatsPending = false;
    m_storedExcelFormats.clear();
}

void OutputColumns::setJsonTypes(const Choices &types)
{
    m_jsonTypes = types;
    m_typesPending = false;
    m_storedJsonTypes.clear();
}

void OutputColumns::setStored(const QString &multiFileColumn, const QString &excelFormats, const QString &jsonTypes)
{
    m_storedMultiFileColumn = multiFileColumn;
    m_storedExcelFormats = excelFormats;
    m_storedJsonTypes = jsonTypes;
    m_filePending = m_formatsPending = m_typesPending = true;
}

void OutputColumns::resolve(const Dataset &upstream)
{
    if (!upstream.hasColumns()) {
        return;
    }
    if (m_filePending) {
        m_multiFileColumn = columnOfText(m_storedMultiFileColumn, upstream);
    }
    if (m_formatsPending) {
        m_excelFormats = choicesOfText(m_storedExcelFormats, upstream);
    }
    if (m_typesPending) {
        m_jsonTypes = choicesOfText(m_storedJsonTypes, upstream);
    }
    m_filePending = m_formatsPending = m_typesPending = false;
}

QString OutputColumns::storedMultiFileColumn(const Dataset *upstream) const
{
    if (m_filePending || !hasTable(upstream)) {
        return m_storedMultiFileColumn;
    }
    return QString::number(toNumber(upstream->columnIndexOfId(m_multiFileColumn)).toInt());
}

QString OutputColumns::storedExcelFormats(const Dataset *upstream) const
{
    return m_formatsPending || !hasTable(upstream) ? m_storedExcelFormats : textOfChoices(m_excelFormats, *upstream);
}

QString OutputColumns::storedJsonTypes(const Dataset *upstream) const
{
    return m_typesPending || !hasTable(upstream) ? m_storedJsonTypes : textOfChoices(m_jsonTypes, *upstream);
}

void OutputColumns::reconnect(const Dataset &upstream, QStringList &warnings, QStringList &infos)
{
    if (m_reconnectPending) {
        m_excelFormats = reconnected(m_excelFormats, upstream, QStringLiteral("Excel column formats"), warnings, infos);
        m_jsonTypes = reconnected(m_jsonTypes, upstream, QStringLiteral("Json column types"), warnings, infos);
        m_multiFileColumn = reconnected(m_multiFileColumn, upstream, QStringLiteral("Files column"), warnings, infos);
        m_reconnectPending = false;
    }
    learnNames(upstream);
}

ColumnId OutputColumns::reconnected(
    ColumnId id, const Dataset &upstream, const QString &option, QStringList &warnings, QStringList &infos) const
{
    const QString lastName = m_columnNameHints.value(id);
    if (lastName.isEmpty() || upstream.columnIndexOfId(id).isValid()) {
        return id;
    }
    const ColumnIndex found = upstream.columnIndexOfName(lastName);
    if (!found.isValid()) {
        warnings.append(QStringLiteral("Cannot reconnect to column '%1' for '%2'").arg(lastName, option));
        return id;
    }
    infos.append(QStringLiteral("Reconnected to column '%1' for '%2'").arg(lastName, option));
    return upstream.columnId(found);
}

OutputColumns::Choices OutputColumns::reconnected(const Choices &choices, const Dataset &upstream,
    const QString &option, QStringList &warnings, QStringList &infos) const
{
    Choices result;
    for (const ColumnId id : sortedKeys(choices)) {
        result.insert(reconnected(id, upstream, option, warnings, infos), choices.value(id));
    }
    return result;
}

/// Renews the names of what is there; the names of lost columns stay for a later search. The stored texts follow, for
/// the time when the table upstream is gone.
void OutputColumns::learnNames(const Dataset &upstream)
{
    if (isPending() || !upstream.hasColumns()) {
        return;
    }
    QHash<ColumnId, QString> names;
    const QList<ColumnId> ids = m_excelFormats.keys() + m_jsonTypes.keys() + QList<ColumnId>{m_multiFileColumn};
    for (const ColumnId id : ids) {
        const ColumnIndex column = upstream.columnIndexOfId(id);
        names.insert(id, column.isValid() ? upstream.columnName(column) : m_columnNameHints.value(id));
    }
    m_columnNameHints = names;
    m_storedMultiFileColumn = storedMultiFileColumn(&upstream);
    m_storedExcelFormats = storedExcelFormats(&upstream);
    m_storedJsonTypes = storedJsonTypes(&upstream);
}

void OutputColumns::remap(const QHash<ColumnId, ColumnId> &map)
{
    m_multiFileColumn = map.value(m_multiFileColumn, m_multiFileColumn);
    m_excelFormats = remapped(m_excelFormats, map);
    m_jsonTypes = remapped(m_jsonTypes, map);
    QHash<ColumnId, QString> names;
    for (auto it = m_columnNameHints.cbegin(); it != m_columnNameHints.cend(); ++it) {
        names.insert(map.value(it.key(), it.key()), it.value());
    }
    m_columnNameHints = names;
}

QVariantList OutputColumns::values() const
{
    QVariantList values{isPending(), m_multiFileColumn.nodeId(), m_multiFileColumn.serial()};
    values.append(QVariant(valuesOf(m_excelFormats)));
    values.append(QVariant(valuesOf(m_jsonTypes)));
    if (isPending()) {
        values << m_storedMultiFileColumn << m_storedExcelFormats << m_storedJsonTypes;
    }
    return values;
}
