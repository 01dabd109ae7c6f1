#pragma once

#include <QStringList>

/// Ways to make many new names at once.
namespace RenameRules {

enum Case { Lower, Upper, Title };

QString withPrefixAndSuffix(const QString &name, const QString &prefix, const QString &suffix);
QString inCase(const QString &name, Case change);
/// By a plain text, an exact text or a regular expression; one that doesn't compile changes nothing.
enum Match { Text, ExactText, Regex };
QString replaced(const QString &name, Match match, const QString &find, const QString &with, bool caseSensitive);
/// Names of a pasted list: one a line, or, on a single line, parted by tabs.
QStringList pasted(const QString &text);

} // namespace RenameRules
