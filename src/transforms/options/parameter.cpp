#include "transforms/options/parameter.h"

#include "data/dataset.h"
#include "data/datasource.h"
#include "transforms/options/columnnumbers.h"

#include <QtMath>
#include <algorithm>

Parameter::Parameter(
    Kind kind, const QString &name, const QString &label, const QVariant &value, const QStringList &choices)
    : ParameterDeclaration(kind, name, label)
    , m_value(value)
{
    registerRecordTypes();
    if (!choices.isEmpty()) {
        m_choices = choices;
    }
}

Parameter::Parameter(Kind kind, const QString &name, const QString &label, DataSource *node)
    : ParameterDeclaration(kind, name, label)
    , m_node(node)
{
    registerRecordTypes();
    initialiseFromNode();
}

void Parameter::initialiseFromNode()
{
    switch (m_kind) {
    case FilterColumns:
        m_value = QVariant::fromValue(FilterRecord());
        break;
    case If:
        m_value = QVariant::fromValue(IfRecord());
        break;
    case SplitRows:
        m_value = QVariant::fromValue(SplitRowsRecord());
        break;
    case UniqueColumns:
        m_value = QVariant::fromValue(QHash<ColumnId, int>());
        break;
    case VerifyRules:
        m_value = QVariant::fromValue(VerifyRuleSet());
        break;
    case SingleColumn:
    case MultipleColumns:
    case SortColumns:
    case ReorderColumns:
    case Bool:
    case Selection:
    case Text:
    case Int:
    case Char:
    case RemoveColumns:
    case Script:
    case RenameColumns:
    case ReplaceTerms:
    case Real:
    case LongText:
    case Label:
    case Date:
    case PivotColumns:
    case Locale:
        break;
    }
}

bool Parameter::dependsOnColumns() const
{
    switch (m_kind) {
    case SingleColumn:
    case MultipleColumns:
    case SortColumns:
    case FilterColumns:
    case ReorderColumns:
    case If:
    case RemoveColumns:
    case Script:
    case RenameColumns:
    case SplitRows:
    case UniqueColumns:
    case VerifyRules:
    case PivotColumns:
        return true;
    case Bool:
    case Selection:
    case Text:
    case Int:
    case Char:
    case ReplaceTerms:
    case Real:
    case LongText:
    case Label:
    case Date:
    case Locale:
        break;
    }
    return false;
}

static bool isUnsetSplit(const SplitRowsRecord &record, bool hasColumn)
{
    return record.mode == SplitRowsRecord::EveryColumns
               ? !hasColumn
               : record.mode == SplitRowsRecord::ByMatchingNames && record.text.isEmpty();
}

bool Parameter::isUnset() const
{
    switch (m_kind) {
    case SingleColumn:
        return !toColumnNumber().isValid() && (m_columnRequired || (m_node && !toColumnId().isNull()));
    case MultipleColumns:
    case SortColumns:
    case PivotColumns:
    case FilterColumns:
    case If:
    case UniqueColumns:
        return !hasColumnsLeft();
    case Selection:
        return m_firstChoiceIsUnset && toSelectionIndex() == 0;
    case Text:
    case LongText:
        return m_textRequired && toText().isEmpty();
    case Script:
        return toText().trimmed().isEmpty();
    case Int:
        return m_nonZeroRequired && toInt() == 0;
    case Char:
        return toChar().isNull();
    case SplitRows:
        return isUnsetSplit(toSplitRows(), ColumnNumbers(m_node).indexOf(toSplitRows().startColumn).isValid());
    case ReplaceTerms:
        return toReplaceTerms().isEmpty();
    case ReorderColumns:
    case Bool:
    case RemoveColumns:
    case RenameColumns:
    case Real:
    case VerifyRules:
    case Label:
    case Date:
    case Locale:
        break;
    }
    return false;
}

// What the value is

QDate Parameter::toDate() const
{
    const QDate date = m_value.toDate();
    return date.isValid() ? date : QDate(2000, 1, 1);
}

QLocale Parameter::toLocale() const
{
    return m_value.userType() == QMetaType::QLocale ? m_value.toLocale() : QLocale();
}

int Parameter::toSelectionIndex() const
{
    return qMax(0, choices().indexOf(toSelectionText()));
}

ColumnId Parameter::toColumnId() const
{
    return m_value.value<ColumnId>();
}

ColumnNumber Parameter::toColumnNumber() const
{
    return toNumber(ColumnNumbers(m_node).indexOf(toColumnId()));
}

QList<ColumnNumber> Parameter::toColumnNumbers(bool sorted) const
{
    const ColumnNumbers columns(m_node);
    QList<ColumnNumber> numbers;
    for (ColumnId id : m_value.value<QList<ColumnId>>()) {
        const ColumnIndex column = columns.indexOf(id);
        if (column.isValid()) {
            numbers.append(toNumber(column));
        }
    }
    if (sorted) {
        std::sort(numbers.begin(), numbers.end());
    }
    return numbers;
}

QList<SortColumn> Parameter::toSortColumns() const
{
    return m_value.value<QList<SortColumn>>();
}

FilterRecord Parameter::toFilterTerms() const
{
    return m_value.value<FilterRecord>();
}

IfRecord Parameter::toIfBranches() const
{
    return m_value.value<IfRecord>();
}

QHash<ColumnId, QString> Parameter::toRenames() const
{
    return m_value.value<QHash<ColumnId, QString>>();
}

QList<ReplaceTerm> Parameter::toReplaceTerms() const
{
    return m_value.value<QList<ReplaceTerm>>();
}

QHash<ColumnId, int> Parameter::toUniqueColumns() const
{
    return m_value.value<QHash<ColumnId, int>>();
}

SplitRowsRecord Parameter::toSplitRows() const
{
    return m_value.value<SplitRowsRecord>();
}

VerifyRuleSet Parameter::toVerifyRules() const
{
    return m_value.value<VerifyRuleSet>();
}

// Setting it

void Parameter::setValue(const QVariant &value)
{
    m_value = value;
    m_selectAllPending = false;
    if (m_text.isWaiting()) {
        m_text.take();
    }
    keepColumnText();
}

void Parameter::setNode(DataSource *node, bool reinitialise)
{
    m_node = node;
    if (reinitialise) {
        initialiseFromNode();
    }
}

static QChar characterOf(const QVariant &value)
{
    if (value.userType() == QMetaType::QChar) {
        return value.toChar();
    }
    const QString text = value.toString();
    return text.isEmpty() ? QChar() : text.at(0);
}

bool Parameter::setUserDefault(const QVariant &value)
{
    const QVariant accepted = value.isValid() ? acceptable(value) : QVariant();
    if (!accepted.isValid()) {
        return false;
    }
    m_value = accepted;
    return true;
}

QVariant Parameter::acceptable(const QVariant &value) const
{
    bool ok = true;
    switch (m_kind) {
    case Bool:
        return value.canConvert<bool>() ? QVariant(value.toBool()) : QVariant();
    case Selection:
        return choices().contains(value.toString()) ? QVariant(value.toString()) : QVariant();
    case Text:
    case LongText:
        return value.canConvert<QString>() ? QVariant(value.toString()) : QVariant();
    case Int: {
        const int number = value.toInt(&ok);
        return ok ? QVariant(qBound(m_minInt, number, m_maxInt)) : QVariant();
    }
    case Real: {
        const double number = value.toDouble(&ok);
        return ok && qIsFinite(number) ? QVariant(qBound(m_minReal, number, m_maxReal)) : QVariant();
    }
    case Char:
        return characterOf(value).isNull() ? QVariant() : QVariant(characterOf(value));
    case Date:
        return value.toDate().isValid() ? QVariant(value.toDate()) : QVariant();
    case Locale:
        return value.userType() == QMetaType::QLocale ? value : QVariant();
    case ReplaceTerms:
        return value.canConvert<QList<ReplaceTerm>>() ? value : QVariant();
    case SingleColumn:
    case MultipleColumns:
    case SortColumns:
    case FilterColumns:
    case ReorderColumns:
    case If:
    case RemoveColumns:
    case Script:
    case RenameColumns:
    case SplitRows:
    case UniqueColumns:
    case VerifyRules:
    case Label:
    case PivotColumns:
        break;
    }
    return QVariant();
}

void Parameter::preselectSingleColumn()
{
    if (!m_node || m_node->datasetConst().columnCount() != 1) {
        return;
    }
    const ColumnId only = m_node->datasetConst().columnId(ColumnIndex(0));
    if (m_kind == SingleColumn) {
        m_value = QVariant::fromValue(only);
    } else if (m_kind == MultipleColumns) {
        m_value = QVariant::fromValue(QList<ColumnId>{only});
    }
}

void Parameter::selectAllColumns()
{
    m_selectAllPending = m_node && !m_node->isReady();
    if (m_node && (m_kind == MultipleColumns || m_kind == RemoveColumns)) {
        m_value = QVariant::fromValue(m_node->datasetConst().columnIds());
    }
}
