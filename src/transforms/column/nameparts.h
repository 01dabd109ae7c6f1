#pragma once

#include <QString>

/// Words that tell the parts of a person's name apart. Case doesn't count.
namespace NameParts {

/// "Dr", "Mrs." and the like.
bool isHonorific(const QString &token);
/// "Jr.", "PhD" and the like.
bool isSuffix(const QString &token);
/// "van", "de" and the like, which belong to the last name behind them.
bool isLastNamePrefix(const QString &token);

} // namespace NameParts
