#pragma once

#include "settings/choices.h"

#include <QFlags>
#include <QString>
#include <QStringList>

class Node;

/// What items are searched for, and where.
struct ItemSearch
{
    enum Place { Names = 1, Ids = 2, Comments = 4, OptionValues = 8, ColumnNames = 16, DataValues = 32 };
    enum Kind { Inputs = 1, Transforms = 2, Outputs = 4, Charts = 8, Notes = 16 };
    Q_DECLARE_FLAGS(Places, Place)
    Q_DECLARE_FLAGS(Kinds, Kind)

    QStringList terms;
    SearchJoin join = SearchJoin::All; ///< whether an item must have all terms, each in any of the places
    Places places;
    Kinds kinds;
    Qt::CaseSensitivity sensitivity = Qt::CaseInsensitive;

    /// Words are parted by blanks; what stands in double quotes is one term.
    static QStringList termsOf(const QString &text);

    bool matches(const Node &node) const;

private:
    bool isIn(const Node &node, const QString &term) const;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ItemSearch::Places)
Q_DECLARE_OPERATORS_FOR_FLAGS(ItemSearch::Kinds)
