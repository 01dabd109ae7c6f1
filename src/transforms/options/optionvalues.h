#pragma once

#include "transforms/options/parameter.h"

#include <QVector>

/// Reads the values of a transform's options by key, typed. Everything is looked up and converted here, once, before a
/// loop over rows. A key that isn't there is a fault of the caller and reads as an empty value.
class OptionValues
{
public:
    explicit OptionValues(const QList<Parameter *> &parameters)
        : m_parameters(parameters)
    {
    }

    bool has(const QString &key) const { return find(key) != nullptr; }

    /// Bounded by the option's limits, whatever a document says.
    int integer(const QString &key) const;
    double real(const QString &key) const;
    bool flag(const QString &key) const;
    /// Also the text of a LongText or a Script.
    QString text(const QString &key) const;
    /// Index of the chosen entry; 0 for a text that isn't an entry.
    int choice(const QString &key) const;
    /// The same as a value of the enumeration that has the option's choices in their order; documents that have any
    /// other choice give the first one.
    template<class Choice>
    Choice choiceAs(const QString &key) const
    {
        return static_cast<Choice>(choice(key));
    }
    QString choiceText(const QString &key) const;
    QChar character(const QString &key) const;
    QDate date(const QString &key) const;
    QLocale locale(const QString &key) const;

    /// Invalid when none is chosen or the chosen one has gone.
    ColumnIndex column(const QString &key) const;
    /// Ascending, each once, without those that have gone.
    QVector<ColumnIndex> columns(const QString &key) const;
    /// In the option's own order, without those that have gone.
    QVector<ColumnIndex> orderedColumns(const QString &key) const;
    /// Column numbers, negative for descending, without those that have gone.
    QList<int> sortNumbers(const QString &key) const;
    FilterRecord filter(const QString &key) const;
    IfRecord ifBranches(const QString &key) const;
    SplitRowsRecord splitRows(const QString &key) const;
    QList<ReplaceTerm> replaceTerms(const QString &key) const;
    QHash<ColumnId, QString> renames(const QString &key) const;
    QHash<ColumnId, int> uniqueColumns(const QString &key) const;
    VerifyRuleSet verifyRules(const QString &key) const;

private:
    const Parameter *find(const QString &key) const;
    /// Never null: an empty Label stands for a missing option.
    const Parameter &at(const QString &key) const;

    QList<Parameter *> m_parameters;
};
