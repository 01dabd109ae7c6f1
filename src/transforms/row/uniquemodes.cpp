#include "transforms/row/uniquemodes.h"

const QStringList &UniqueModes::texts()
{
    static const QStringList texts{QStringLiteral("Keep unique"), QStringLiteral("Keep first"),
        QStringLiteral("Keep last"), QStringLiteral("Sum"), QStringLiteral("Maximum"), QStringLiteral("Minimum"),
        QStringLiteral("Average"), QStringLiteral("Concat"), QStringLiteral("Concat distinct"),
        QStringLiteral("Keep first non-empty"), QStringLiteral("Keep last non-empty"), QStringLiteral("Count distinct"),
        QStringLiteral("Count unique"), QStringLiteral("Count duplicate"), QStringLiteral("Count empty"),
        QStringLiteral("Count non-empty"), QStringLiteral("Set empty")};
    return texts;
}
