#include "transforms/options/optionvalues.h"

#include "data/dataset.h"
#include "data/datasource.h"
#include "transforms/options/columnnumbers.h"

#include <QSet>
#include <algorithm>

const Parameter *OptionValues::find(const QString &key) const
{
    for (const Parameter *parameter : m_parameters) {
        if (parameter->name() == key) {
            return parameter;
        }
    }
    return nullptr;
}

const Parameter &OptionValues::at(const QString &key) const
{
    static const Parameter none(Parameter::Label, QString(), QString());
    const Parameter *parameter = find(key);
    Q_ASSERT_X(parameter, "OptionValues", qPrintable(key));
    return parameter ? *parameter : none;
}

int OptionValues::integer(const QString &key) const
{
    const Parameter &option = at(key);
    return qBound(option.minInt(), option.toInt(), option.maxInt());
}

double OptionValues::real(const QString &key) const
{
    const Parameter &option = at(key);
    return qBound(option.minReal(), option.toReal(), option.maxReal());
}

bool OptionValues::flag(const QString &key) const
{
    return at(key).toBool();
}

QString OptionValues::text(const QString &key) const
{
    return at(key).toText();
}

int OptionValues::choice(const QString &key) const
{
    return at(key).toSelectionIndex();
}

QString OptionValues::choiceText(const QString &key) const
{
    return at(key).choices().value(choice(key));
}

QChar OptionValues::character(const QString &key) const
{
    return at(key).toChar();
}

QDate OptionValues::date(const QString &key) const
{
    return at(key).toDate();
}

QLocale OptionValues::locale(const QString &key) const
{
    return at(key).toLocale();
}

ColumnIndex OptionValues::column(const QString &key) const
{
    return toIndex(at(key).toColumnNumber());
}

QVector<ColumnIndex> OptionValues::orderedColumns(const QString &key) const
{
    QVector<ColumnIndex> columns;
    QSet<int> seen;
    for (ColumnNumber number : at(key).toColumnNumbers(false)) {
        if (!seen.contains(number.toInt())) {
            seen.insert(number.toInt());
            columns.append(toIndex(number));
        }
    }
    return columns;
}

QVector<ColumnIndex> OptionValues::columns(const QString &key) const
{
    QVector<ColumnIndex> columns = orderedColumns(key);
    std::sort(columns.begin(), columns.end());
    return columns;
}

QList<int> OptionValues::sortNumbers(const QString &key) const
{
    const Parameter &option = at(key);
    const ColumnNumbers columns(option.node());
    QList<int> numbers;
    for (const SortColumn &entry : option.toSortColumns()) {
        const ColumnIndex column = columns.indexOf(entry.column);
        if (column.isValid()) {
            numbers.append(entry.ascending ? toNumber(column).toInt() : -toNumber(column).toInt());
        }
    }
    return numbers;
}

FilterRecord OptionValues::filter(const QString &key) const
{
    return at(key).toFilterTerms();
}

IfRecord OptionValues::ifBranches(const QString &key) const
{
    return at(key).toIfBranches();
}

SplitRowsRecord OptionValues::splitRows(const QString &key) const
{
    return at(key).toSplitRows();
}

QList<ReplaceTerm> OptionValues::replaceTerms(const QString &key) const
{
    return at(key).toReplaceTerms();
}

QHash<ColumnId, QString> OptionValues::renames(const QString &key) const
{
    return at(key).toRenames();
}

QHash<ColumnId, int> OptionValues::uniqueColumns(const QString &key) const
{
    return at(key).toUniqueColumns();
}

VerifyRuleSet OptionValues::verifyRules(const QString &key) const
{
    return at(key).toVerifyRules();
}
