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

QString textOfColumn(ColumnId column, const Dataset &upstream)
{
    return QString::number(toNumber(upstream.columnIndexOfId(column)).toInt());
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

void OutputColumns::setMultiFileColumn(ColumnId column, const Dataset *upstream)
{
    m_multiFileColumn = column;
    m_fileText.keep(hasTable(upstream) ? textOfColumn(column, *upstream) : QString());
}

void OutputColumns::setExcelFormats(const Choices &formats, const Dataset *upstream)
{
    m_excelFormats = formats;
    m_formatsText.keep(hasTable(upstream) ? textOfChoices(formats, *upstream) : QString());
}

void OutputColumns::setJsonTypes(const Choices &types, const Dataset *upstream)
{
    m_jsonTypes = types;
    m_typesText.keep(hasTable(upstream) ? textOfChoices(types, *upstream) : QString());
}

void OutputColumns::setStored(const QString &multiFileColumn, const QString &excelFormats, const QString &jsonTypes)
{
    m_fileText.wait(multiFileColumn);
    m_formatsText.wait(excelFormats);
    m_typesText.wait(jsonTypes);
}

void OutputColumns::resolve(const Dataset &upstream)
{
    if (!isPending() || !upstream.hasColumns()) {
        return;
    }
    if (m_fileText.isWaiting()) {
        m_multiFileColumn = columnOfText(m_fileText.take(), upstream);
    }
    if (m_formatsText.isWaiting()) {
        m_excelFormats = choicesOfText(m_formatsText.take(), upstream);
    }
    if (m_typesText.isWaiting()) {
        m_jsonTypes = choicesOfText(m_typesText.take(), upstream);
    }
    m_memory.learn(upstream, options());
    keepTexts(upstream);
}

QString OutputColumns::storedMultiFileColumn(const Dataset *upstream) const
{
    const bool asKept = m_fileText.isWaiting() || !hasTable(upstream);
    return asKept ? m_fileText.text() : textOfColumn(m_multiFileColumn, *upstream);
}

QString OutputColumns::storedExcelFormats(const Dataset *upstream) const
{
    const bool asKept = m_formatsText.isWaiting() || !hasTable(upstream);
    return asKept ? m_formatsText.text() : textOfChoices(m_excelFormats, *upstream);
}

QString OutputColumns::storedJsonTypes(const Dataset *upstream) const
{
    const bool asKept = m_typesText.isWaiting() || !hasTable(upstream);
    return asKept ? m_typesText.text() : textOfChoices(m_jsonTypes, *upstream);
}

QList<ColumnOption> OutputColumns::options()
{
    return {{QStringLiteral("Excel column formats"), m_excelFormats},
        {QStringLiteral("Json column types"), m_jsonTypes}, {QStringLiteral("Files column"), m_multiFileColumn}};
}

void OutputColumns::reconnect(const Dataset &upstream, QStringList &warnings, QStringList &infos)
{
    m_memory.reconnect(options(), {upstream, warnings, infos});
    keepTexts(upstream);
}

void OutputColumns::keepTexts(const Dataset &upstream)
{
    if (!isPending() && upstream.hasColumns()) {
        m_fileText.keep(storedMultiFileColumn(&upstream));
        m_formatsText.keep(storedExcelFormats(&upstream));
        m_typesText.keep(storedJsonTypes(&upstream));
    }
}

void OutputColumns::remap(const QHash<ColumnId, ColumnId> &map)
{
    m_memory.remap(map, options());
}

QVariantList OutputColumns::values() const
{
    QVariantList values{isPending(), m_multiFileColumn.nodeId(), m_multiFileColumn.serial()};
    values.append(QVariant(valuesOf(m_excelFormats)));
    values.append(QVariant(valuesOf(m_jsonTypes)));
    if (isPending()) {
        values << m_fileText.text() << m_formatsText.text() << m_typesText.text();
    }
    return values;
}
