#pragma once

#include "data/indexes.h"

#include <QHash>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVector>

/// One entry of a sort option.
struct SortColumn
{
    ColumnId column;
    bool ascending = true;
    friend bool operator==(const SortColumn &a, const SortColumn &b)
    {
        return a.column == b.column && a.ascending == b.ascending;
    }
};

/// One condition of a filter or of an If branch. A null column stands for any column; `op` is a MatchOperator.
struct FilterTerm
{
    ColumnId column;
    int op = 0;
    QString text;
    friend bool operator==(const FilterTerm &a, const FilterTerm &b)
    {
        return a.column == b.column && a.op == b.op && a.text == b.text;
    }
};

/// Value of a filter option; the default keeps what one empty term matches.
struct FilterRecord
{
    bool keep = true;
    bool matchAll = true;
    QList<FilterTerm> terms{FilterTerm()};
    friend bool operator==(const FilterRecord &a, const FilterRecord &b)
    {
        return a.keep == b.keep && a.matchAll == b.matchAll && a.terms == b.terms;
    }
};

struct IfBranch
{
    QList<FilterTerm> conditions{FilterTerm()};
    QString thenText;
    friend bool operator==(const IfBranch &a, const IfBranch &b)
    {
        return a.conditions == b.conditions && a.thenText == b.thenText;
    }
};

/// Value of an If option; the default has one branch with one empty condition.
struct IfRecord
{
    QList<IfBranch> branches{IfBranch()};
    QString elseText;
    friend bool operator==(const IfRecord &a, const IfRecord &b)
    {
        return a.branches == b.branches && a.elseText == b.elseText;
    }
};

struct ReplaceTerm
{
    int mode = 0;
    QString find;
    QString replace;
    friend bool operator==(const ReplaceTerm &a, const ReplaceTerm &b)
    {
        return a.mode == b.mode && a.find == b.find && a.replace == b.replace;
    }
};

/// Value of a SplitRows option: where a row is cut.
struct SplitRowsRecord
{
    enum Mode { ByMatchingNames = 0, Automatic = 1, EveryColumns = 2 };

    int mode = ByMatchingNames;
    int times = 1;
    int every = 2;
    ColumnId startColumn;
    int op = 0;   ///< a MatchOperator, for ByMatchingNames
    QString text; ///< what `op` compares names with
    friend bool operator==(const SplitRowsRecord &a, const SplitRowsRecord &b)
    {
        return a.mode == b.mode && a.times == b.times && a.every == b.every && a.startColumn == b.startColumn
               && a.op == b.op && a.text == b.text;
    }
};

/// What becomes of a column when rows are grouped; the values of a UniqueColumns option.
namespace UniqueCode {
enum { KeepUnique = 0, KeepFirst = 1, SetEmpty = 16 };
}

/// Lets QVariant compare the values of options and store those that users save as defaults. Cheap when done before.
void registerRecordTypes();

Q_DECLARE_METATYPE(SortColumn)
Q_DECLARE_METATYPE(FilterRecord)
Q_DECLARE_METATYPE(IfRecord)
Q_DECLARE_METATYPE(ReplaceTerm)
Q_DECLARE_METATYPE(SplitRowsRecord)
