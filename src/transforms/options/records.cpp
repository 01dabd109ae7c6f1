#include "transforms/options/records.h"

#include "transforms/options/verifyrules.h"

#include <QDataStream>

// Users' defaults are kept in the settings in this form.
static QDataStream &operator<<(QDataStream &out, const ReplaceTerm &term)
{
    return out << term.mode << term.find << term.replace;
}

static QDataStream &operator>>(QDataStream &in, ReplaceTerm &term)
{
    return in >> term.mode >> term.find >> term.replace;
}

static bool registerTypes()
{
    QMetaType::registerEqualsComparator<ColumnId>();
    QMetaType::registerEqualsComparator<QList<ColumnId>>();
    QMetaType::registerEqualsComparator<QList<SortColumn>>();
    QMetaType::registerEqualsComparator<FilterRecord>();
    QMetaType::registerEqualsComparator<IfRecord>();
    QMetaType::registerEqualsComparator<QHash<ColumnId, QString>>();
    QMetaType::registerEqualsComparator<QHash<ColumnId, int>>();
    QMetaType::registerEqualsComparator<SplitRowsRecord>();
    QMetaType::registerEqualsComparator<QList<ReplaceTerm>>();
    QMetaType::registerEqualsComparator<VerifyRuleSet>();
    qRegisterMetaTypeStreamOperators<QList<ReplaceTerm>>("QList<ReplaceTerm>");
    return true;
}

void registerRecordTypes()
{
    static const bool registered = registerTypes();
    Q_UNUSED(registered)
}
