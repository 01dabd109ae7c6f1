#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

/// The search of transforms by words.
namespace TransformSearch {

/// What is typed, in words: lower case, commas and dashes count as blanks.
QStringList wordsOf(const QString &typed);
/// How many of `words` begin one of `keywords`.
int score(const QSet<QString> &keywords, const QStringList &words);
/// Which entries show: those with the highest score, which is at least 1; all where nothing is typed.
QVector<bool> matches(const QVector<QSet<QString>> &keywords, const QString &typed);

/// Which of `names` Enter means: one that is what is typed, else one that begins so, else the first. -1 when there is
/// none or nothing is typed.
int bestName(const QStringList &names, const QString &typed);

} // namespace TransformSearch
