#include "data/dataset.h"
#include "data/datasource.h"
#include "data/values.h"
#include "transforms/options/columnnumbers.h"
#include "transforms/options/parameter.h"

static constexpr int namesShown = 3;

static QString characterSummary(QChar character)
{
    if (character == QLatin1Char(' ')) {
        return QStringLiteral("<Space>");
    }
    if (character == QLatin1Char('\t')) {
        return QStringLiteral("<Tab>");
    }
    return character.isNull() ? QString() : QString(character);
}

static QString splitSummary(const SplitRowsRecord &record)
{
    switch (record.mode) {
    case SplitRowsRecord::ByMatchingNames:
        return QStringLiteral("By matching column names");
    case SplitRowsRecord::Automatic:
        return QStringLiteral("Automatically by column names");
    default:
        return record.times == 1 ? QStringLiteral("1 time")
                                 : QStringLiteral("every %2 column(s), %1 times")
                                       .arg(QString::number(record.times), QString::number(record.every));
    }
}

static QString counted(const char *text, int count)
{
    return QString::fromLatin1(text).arg(formatInteger(count, true));
}

QString Parameter::singleColumnSummary() const
{
    const ColumnNumber number = toColumnNumber();
    return number.isValid() ? m_node->datasetConst().columnName(toIndex(number)) : noneText();
}

QString Parameter::sortSummary() const
{
    const QList<SortColumn> entries = toSortColumns();
    const QString text = counted("%1 column(s)", entries.size());
    QStringList names;
    for (const SortColumn &entry : entries) {
        if (names.size() == namesShown) {
            names.append(QStringLiteral("..."));
            break;
        }
        const ColumnIndex column = ColumnNumbers(m_node).indexOf(entry.column);
        if (column.isValid()) {
            const QChar arrow(entry.ascending ? u'▲' : u'▼');
            names.append(arrow + m_node->datasetConst().columnName(column));
        }
    }
    return names.isEmpty() ? text : text + QStringLiteral(" (%1)").arg(names.join(QStringLiteral(", ")));
}

QString Parameter::summary() const
{
    if (m_text.isWaiting()) {
        return QStringLiteral("Needs updating");
    }
    switch (m_kind) {
    case SingleColumn:
        return singleColumnSummary();
    case MultipleColumns:
    case ReorderColumns:
    case RemoveColumns:
        return m_node ? m_node->columnsDescription(m_value.value<QList<ColumnId>>(), namesShown) : QString();
    case SortColumns:
    case PivotColumns:
        return sortSummary();
    case FilterColumns:
        return counted("%1 term(s)", toFilterTerms().terms.size());
    case Bool:
        return toBool() ? QStringLiteral("Yes") : QStringLiteral("No");
    case Int:
        return toInt() == m_minInt && !minText().isEmpty() ? minText() : formatInteger(toInt(), true);
    case Char:
        return characterSummary(toChar());
    case If:
        return counted("%1 if/elseif + else", toIfBranches().branches.size());
    case RenameColumns:
        return counted("%1 column(s) renamed", toRenames().size());
    case SplitRows:
        return splitSummary(toSplitRows());
    case UniqueColumns:
        return counted("%1 unique column(s)", toUniqueColumns().keys(UniqueCode::KeepUnique).size());
    case ReplaceTerms:
        return counted("%1 term(s)", toReplaceTerms().size());
    case Real:
        return formatReal(toReal(), false, -1, true);
    case VerifyRules:
        return toVerifyRules().summary();
    case Date:
        return dateText(toDate());
    case Locale:
        return localeName(toLocale());
    case Label:
        return QString();
    case Selection:
    case Text:
    case LongText:
    case Script:
        return toText();
    }
    return QString();
}
