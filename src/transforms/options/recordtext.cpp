#include "transforms/options/recordtext.h"

#include "transforms/options/columnnumbers.h"

#include <QUrl>
#include <limits>

static constexpr int lastOperator = 20;
static constexpr int termSize = 3; // column, operator, text
static const QLatin1String startIf("*StartIf*");
static const QLatin1String endIf("*EndIf*");
static const QLatin1String noRename("*NORENAME*");

QString RecordText::encoded(const QString &text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

bool RecordText::readInt(const QString &part, int &target)
{
    bool ok = false;
    const int number = part.toInt(&ok);
    if (ok) {
        target = number;
    }
    return ok;
}

// Writing

QStringList RecordText::parts(const QList<ColumnId> &ids, const ColumnNumbers &columns)
{
    QStringList result;
    for (ColumnId id : ids) {
        if (columns.numberOf(id) > 0) {
            result.append(QString::number(columns.numberOf(id)));
        }
    }
    return result;
}

QStringList RecordText::parts(const QList<SortColumn> &entries, const ColumnNumbers &columns)
{
    QStringList result;
    for (const SortColumn &entry : entries) {
        const int number = columns.numberOf(entry.column);
        if (number > 0) {
            result.append(QString::number(entry.ascending ? number : -number));
        }
    }
    return result;
}

static QStringList termParts(const QList<FilterTerm> &terms, const ColumnNumbers &columns)
{
    QStringList result;
    for (const FilterTerm &term : terms) {
        result << QString::number(columns.numberOf(term.column)) << QString::number(term.op)
               << RecordText::encoded(term.text);
    }
    return result;
}

static QString flagText(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

QStringList RecordText::parts(const FilterRecord &record, const ColumnNumbers &columns)
{
    return QStringList{flagText(record.keep), flagText(record.matchAll)} + termParts(record.terms, columns);
}

QStringList RecordText::parts(const IfRecord &record, const ColumnNumbers &columns)
{
    QStringList result;
    for (const IfBranch &branch : record.branches) {
        result << QString(startIf) << termParts(branch.conditions, columns) << QString(endIf)
               << encoded(branch.thenText);
    }
    return result << encoded(record.elseText);
}

QStringList RecordText::parts(const QHash<ColumnId, QString> &renames, const ColumnNumbers &columns)
{
    QStringList result;
    for (ColumnId id : columns.ids()) {
        result.append(renames.contains(id) ? encoded(renames.value(id)) : QString(noRename));
    }
    return result;
}

QStringList RecordText::parts(const SplitRowsRecord &record, const ColumnNumbers &columns)
{
    return {QString::number(record.mode), QString::number(record.times), QString::number(record.every),
        QString::number(qMax(0, columns.numberOf(record.startColumn))), QString::number(record.op),
        encoded(record.text)};
}

QStringList RecordText::parts(const QHash<ColumnId, int> &uniqueCodes, const ColumnNumbers &columns)
{
    QStringList result;
    for (ColumnId id : columns.ids()) {
        result.append(QString::number(uniqueCodes.value(id, UniqueCode::KeepFirst)));
    }
    return result;
}

QStringList RecordText::parts(const QList<ReplaceTerm> &terms)
{
    QStringList result;
    for (const ReplaceTerm &term : terms) {
        result << QString::number(term.mode) << encoded(term.find) << encoded(term.replace);
    }
    return result;
}

// Reading

/// The number of a column, negative for descending; 0 for a part that isn't one.
static int columnNumber(const QString &part)
{
    int number = 0;
    RecordText::readInt(part, number);
    return number == std::numeric_limits<int>::min() ? 0 : number;
}

void RecordText::read(const QStringList &parts, const ColumnNumbers &columns, QList<ColumnId> &ids)
{
    ids.clear();
    for (const QString &part : parts) {
        if (columnNumber(part) > 0) {
            ids.append(columns.idOf(columnNumber(part)));
        }
    }
}

void RecordText::read(const QStringList &parts, const ColumnNumbers &columns, QList<SortColumn> &entries)
{
    entries.clear();
    for (const QString &part : parts) {
        const int number = columnNumber(part);
        if (number != 0) {
            entries.append({columns.idOf(qAbs(number)), number > 0});
        }
    }
}

/// Appends the term at `at`, unless its operator is unknown.
static void readTerm(const QStringList &parts, int at, const ColumnNumbers &columns, QList<FilterTerm> &terms)
{
    FilterTerm term;
    term.column = columns.idOf(columnNumber(parts.at(at)));
    RecordText::readInt(parts.at(at + 1), term.op);
    term.text = parts.at(at + 2);
    if (term.op <= lastOperator) {
        terms.append(term);
    }
}

void RecordText::read(const QStringList &parts, const ColumnNumbers &columns, FilterRecord &record)
{
    record.keep = parts.value(0) != QLatin1String("0");
    record.matchAll = parts.value(1) != QLatin1String("0");
    record.terms.clear();
    for (int i = 2; i + termSize <= parts.size(); i += termSize) {
        readTerm(parts, i, columns, record.terms);
    }
}

void RecordText::read(const QStringList &parts, const ColumnNumbers &columns, IfRecord &record)
{
    record.branches.clear();
    int i = 0;
    while (i < parts.size() && parts.at(i) == startIf) {
        IfBranch branch;
        branch.conditions.clear();
        for (++i; i + termSize <= parts.size() && parts.at(i) != endIf; i += termSize) {
            readTerm(parts, i, columns, branch.conditions);
        }
        branch.thenText = parts.value(i + 1);
        record.branches.append(branch);
        i += 2; // the end and the then-text
    }
    record.elseText = parts.value(i);
}

void RecordText::read(const QStringList &parts, const ColumnNumbers &columns, QHash<ColumnId, QString> &renames)
{
    renames.clear();
    const QList<ColumnId> ids = columns.ids();
    for (int i = 0; i < qMin(ids.size(), parts.size()); ++i) {
        if (parts.at(i) != noRename) {
            renames.insert(ids.at(i), parts.at(i));
        }
    }
}

void RecordText::read(const QStringList &parts, const ColumnNumbers &columns, SplitRowsRecord &record)
{
    int mode = record.mode;
    readInt(parts.value(0), mode);
    if (mode >= SplitRowsRecord::ByMatchingNames && mode <= SplitRowsRecord::EveryColumns) {
        record.mode = mode;
    }
    readInt(parts.value(1), record.times);
    readInt(parts.value(2), record.every);
    record.startColumn = columns.idOf(qMax(0, columnNumber(parts.value(3))));
    readInt(parts.value(4), record.op);
    record.text = parts.value(5);
}

void RecordText::read(const QStringList &parts, const ColumnNumbers &columns, QHash<ColumnId, int> &uniqueCodes)
{
    uniqueCodes.clear();
    const QList<ColumnId> ids = columns.ids();
    for (int i = 0; i < qMin(ids.size(), parts.size()); ++i) {
        int code = UniqueCode::KeepFirst;
        readInt(parts.at(i), code);
        const bool known = code >= UniqueCode::KeepUnique && code <= UniqueCode::SetEmpty;
        uniqueCodes.insert(ids.at(i), known ? code : UniqueCode::KeepFirst);
    }
}

void RecordText::read(const QStringList &parts, QList<ReplaceTerm> &terms)
{
    terms.clear();
    for (int i = 0; i + termSize <= parts.size(); i += termSize) {
        ReplaceTerm term;
        readInt(parts.at(i), term.mode);
        term.find = parts.at(i + 1);
        term.replace = parts.at(i + 2);
        terms.append(term);
    }
}

// Old documents

static void renumberOperator(QString &part)
{
    if (part == QLatin1String("14")) {
        part = QStringLiteral("19");
    } else if (part == QLatin1String("15")) {
        part = QStringLiteral("20");
    }
}

void RecordText::renumberFilterOperators(QStringList &parts)
{
    for (int i = 3; i < parts.size(); i += termSize) {
        renumberOperator(parts[i]);
    }
}

void RecordText::renumberBranchOperators(QStringList &parts)
{
    int i = 0;
    while (i < parts.size() && parts.at(i) == startIf) {
        for (++i; i + termSize <= parts.size() && parts.at(i) != endIf; i += termSize) {
            renumberOperator(parts[i + 1]);
        }
        i += 2; // the end and the then-text
    }
}

bool RecordText::startsBranch(const QString &text)
{
    return text.startsWith(startIf);
}
