#include "data/dataset.h"
#include "data/datasource.h"
#include "transforms/options/columnnumbers.h"
#include "transforms/options/parameter.h"
#include "transforms/options/recordtext.h"

#include <QtMath>

// The stored form of values. Parts are joined by the unit separator and free text in them is percent-encoded; what is
// read back has been decoded once by the document's reader.

static const QChar separator(0x1F);
/// Documents before this version have other numbers for some operators.
static constexpr int operatorsVersion = 57;

bool Parameter::hasSeveralParts() const
{
    return (dependsOnColumns() && m_kind != SingleColumn && m_kind != Script) || m_kind == ReplaceTerms;
}

// Writing

QString Parameter::singleText() const
{
    switch (m_kind) {
    case SingleColumn:
        return QString::number(qMax(0, ColumnNumbers(m_node).numberOf(toColumnId())));
    case Bool:
        return toBool() ? QStringLiteral("1") : QStringLiteral("0");
    case Int:
        return QString::number(toInt());
    case Real:
        return QString::number(toReal(), 'g', 6);
    case Char:
        return toChar().isNull() ? QString() : RecordText::encoded(toChar());
    case Date:
        return toDate().toString(QStringLiteral("yyyy-MM-dd"));
    case Locale:
        return RecordText::encoded(toLocale().bcp47Name());
    case Label:
        return QString();
    case MultipleColumns:
    case SortColumns:
    case FilterColumns:
    case ReorderColumns:
    case Selection:
    case Text:
    case If:
    case RemoveColumns:
    case Script:
    case RenameColumns:
    case SplitRows:
    case UniqueColumns:
    case ReplaceTerms:
    case LongText:
    case VerifyRules:
    case PivotColumns:
        break;
    }
    return RecordText::encoded(toText());
}

QStringList Parameter::columnParts() const
{
    const ColumnNumbers columns(m_node);
    switch (m_kind) {
    case MultipleColumns:
    case ReorderColumns:
    case RemoveColumns:
        return RecordText::parts(m_value.value<QList<ColumnId>>(), columns);
    case SortColumns:
    case PivotColumns:
        return RecordText::parts(toSortColumns(), columns);
    case SplitRows:
        return RecordText::parts(toSplitRows(), columns);
    case SingleColumn:
    case FilterColumns:
    case Bool:
    case Selection:
    case Text:
    case Int:
    case Char:
    case If:
    case Script:
    case RenameColumns:
    case UniqueColumns:
    case ReplaceTerms:
    case Real:
    case LongText:
    case VerifyRules:
    case Label:
    case Date:
    case Locale:
        break;
    }
    return m_node ? recordParts() : QStringList();
}

QStringList Parameter::recordParts() const
{
    const ColumnNumbers columns(m_node);
    switch (m_kind) {
    case FilterColumns:
        return RecordText::parts(toFilterTerms(), columns);
    case If:
        return RecordText::parts(toIfBranches(), columns);
    case RenameColumns:
        return RecordText::parts(toRenames(), columns);
    case UniqueColumns:
        return RecordText::parts(toUniqueColumns(), columns);
    case VerifyRules:
        return toVerifyRules().toParts([&columns](ColumnId id) { return qMax(0, columns.numberOf(id)); });
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
    case SplitRows:
    case ReplaceTerms:
    case Real:
    case LongText:
    case Label:
    case Date:
    case PivotColumns:
    case Locale:
        break;
    }
    return {};
}

QString Parameter::deferredDocumentText() const
{
    if (!hasSeveralParts()) {
        return RecordText::encoded(m_text.text());
    }
    QStringList parts = m_text.text().split(separator);
    if (m_text.version() < operatorsVersion) {
        parts = splitParts(m_text.text(), m_text.version());
    }
    for (QString &part : parts) {
        part = RecordText::encoded(part);
    }
    return parts.join(separator);
}

QString Parameter::toDocumentText() const
{
    if (m_text.isWaiting()) {
        return deferredDocumentText();
    }
    if (m_kind == ReplaceTerms) {
        return RecordText::parts(toReplaceTerms()).join(separator);
    }
    const bool isTableGone = m_node && m_node->datasetConst().columnCount() == 0;
    if (isTableGone && m_knownValue.isValid() && m_knownValue == m_value) {
        return m_text.text();
    }
    return columnText();
}

QString Parameter::columnText() const
{
    return hasSeveralParts() ? columnParts().join(separator) : singleText();
}

void Parameter::keepColumnText()
{
    const bool namesColumns = dependsOnColumns() && m_kind != Script;
    if (namesColumns && !m_text.isWaiting() && m_node && m_node->datasetConst().columnCount() > 0) {
        m_knownValue = m_value;
        m_text.keep(columnText());
    }
}

// Reading

QStringList Parameter::splitParts(const QString &text, int version) const
{
    const bool isOneName = m_kind == RenameColumns && ColumnNumbers(m_node).ids().size() == 1;
    const bool isElseText = m_kind == If && !RecordText::startsBranch(text);
    const bool isCurrent = text.contains(separator) || isOneName || isElseText;
    QStringList parts = text.split(isCurrent ? separator : QLatin1Char('^'));
    if (version < operatorsVersion && m_kind == FilterColumns) {
        RecordText::renumberFilterOperators(parts);
    } else if (version < operatorsVersion && m_kind == If) {
        RecordText::renumberBranchOperators(parts);
    }
    return parts;
}

void Parameter::fromDocumentText(const QString &text, int version)
{
    if (!hasSeveralParts()) {
        readSingle(text);
    } else {
        readParts(text.isEmpty() ? QStringList() : splitParts(text, version));
    }
}

void Parameter::readSingle(const QString &text)
{
    bool ok = false;
    const int number = text.toInt(&ok);
    switch (m_kind) {
    case SingleColumn:
        m_value = ok ? QVariant::fromValue(ColumnNumbers(m_node).idOf(qMax(0, number))) : m_value;
        break;
    case Bool:
        m_value = ok ? QVariant(number != 0) : m_value;
        break;
    case Int:
        m_value = ok ? QVariant(number) : m_value;
        break;
    case Real: {
        const double real = text.toDouble(&ok);
        m_value = ok && qIsFinite(real) ? QVariant(real) : m_value;
        break;
    }
    case Selection:
        m_value = choices().contains(text) ? QVariant(text) : m_value;
        break;
    case Char:
        m_value = text.isEmpty() ? QChar() : text.at(0);
        break;
    case Date:
        m_value = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
        break;
    case Locale:
        // An unknown name reads as the C locale.
        m_value = QLocale(text).language() != QLocale::C || text == QLatin1String("C") ? QVariant(QLocale(text))
                                                                                       : m_value;
        break;
    case MultipleColumns:
    case SortColumns:
    case FilterColumns:
    case ReorderColumns:
    case Text:
    case If:
    case RemoveColumns:
    case Script:
    case RenameColumns:
    case SplitRows:
    case UniqueColumns:
    case ReplaceTerms:
    case LongText:
    case VerifyRules:
    case PivotColumns:
        m_value = text;
        break;
    case Label:
        break;
    }
}

template<class Value>
static QVariant valueOf(const QStringList &parts, DataSource *node, const QVariant &current)
{
    Value value = current.value<Value>();
    RecordText::read(parts, ColumnNumbers(node), value);
    return QVariant::fromValue(value);
}

void Parameter::readParts(const QStringList &parts)
{
    switch (m_kind) {
    case MultipleColumns:
    case ReorderColumns:
    case RemoveColumns:
        m_value = valueOf<QList<ColumnId>>(parts, m_node, m_value);
        break;
    case SortColumns:
    case PivotColumns:
        m_value = valueOf<QList<SortColumn>>(parts, m_node, m_value);
        break;
    case ReplaceTerms: {
        QList<ReplaceTerm> terms;
        RecordText::read(parts, terms);
        m_value = QVariant::fromValue(terms);
        break;
    }
    case SingleColumn:
    case FilterColumns:
    case Bool:
    case Selection:
    case Text:
    case Int:
    case Char:
    case If:
    case Script:
    case RenameColumns:
    case SplitRows:
    case UniqueColumns:
    case Real:
    case LongText:
    case VerifyRules:
    case Label:
    case Date:
    case Locale:
        if (!parts.isEmpty()) {
            readRecord(parts);
        }
    }
}

void Parameter::readRecord(const QStringList &parts)
{
    switch (m_kind) {
    case FilterColumns:
        m_value = valueOf<FilterRecord>(parts, m_node, m_value);
        break;
    case If:
        m_value = valueOf<IfRecord>(parts, m_node, m_value);
        break;
    case RenameColumns:
        m_value = valueOf<QHash<ColumnId, QString>>(parts, m_node, m_value);
        break;
    case UniqueColumns:
        m_value = valueOf<QHash<ColumnId, int>>(parts, m_node, m_value);
        break;
    case SplitRows:
        m_value = valueOf<SplitRowsRecord>(parts, m_node, m_value);
        break;
    case VerifyRules: {
        const ColumnNumbers columns(m_node);
        m_value = QVariant::fromValue(
            VerifyRuleSet::fromParts(parts, [&columns](int number) { return columns.idOf(number); }));
        break;
    }
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

// A value that waits for its columns

void Parameter::setDeferredText(const QString &text, int version)
{
    m_selectAllPending = false;
    m_text.wait(text, version);
    m_knownValue = QVariant();
    if (!dependsOnColumns()) {
        resolveDeferred();
    }
}

void Parameter::resolveDeferred()
{
    if (m_selectAllPending && m_node && m_node->isReady()) {
        selectAllColumns();
    }
    if (!m_text.isWaiting() || (m_node && !m_node->isReady())) {
        return;
    }
    fromDocumentText(m_text.take(), m_text.version());
    if (m_node) {
        m_memory.learn(m_node->datasetConst(), {columnOption()});
    }
    keepColumnText();
}
