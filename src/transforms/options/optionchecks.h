#pragma once

#include <QString>

/// Checks of texts that a person types, for Option::check() and editors: each gives why the text makes no sense, empty
/// when it does or is empty.
namespace OptionChecks {

QString expression(const QString &text);
/// A format that shows no part of a date or a time.
QString dateFormat(const QString &text);

} // namespace OptionChecks
