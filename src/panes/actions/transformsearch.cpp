#include "panes/actions/transformsearch.h"

#include <algorithm>

QStringList TransformSearch::wordsOf(const QString &typed)
{
    QString text = typed.toLower();
    text.replace(QLatin1Char(','), QLatin1Char(' '));
    text.replace(QLatin1Char('-'), QLatin1Char(' '));
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

int TransformSearch::score(const QSet<QString> &keywords, const QStringList &words)
{
    return static_cast<int>(std::count_if(words.cbegin(), words.cend(), [&](const QString &word) {
        return std::any_of(
            keywords.cbegin(), keywords.cend(), [&](const QString &keyword) { return keyword.startsWith(word); });
    }));
}

QVector<bool> TransformSearch::matches(const QVector<QSet<QString>> &keywords, const QString &typed)
{
    const QStringList words = wordsOf(typed);
    if (words.isEmpty()) {
        return QVector<bool>(keywords.size(), true);
    }
    QVector<int> scores;
    int threshold = 1;
    for (const QSet<QString> &entry : keywords) {
        scores.append(score(entry, words));
        threshold = qMax(threshold, scores.last());
    }
    QVector<bool> shown;
    for (int value : qAsConst(scores)) {
        shown.append(value >= threshold);
    }
    return shown;
}

int TransformSearch::bestName(const QStringList &names, const QString &typed)
{
    const QString wanted = wordsOf(typed).join(QLatin1Char(' '));
    if (wanted.isEmpty() || names.isEmpty()) {
        return -1;
    }
    int best = 0;
    bool begins = false;
    for (int i = 0; i < names.size(); ++i) {
        const QString name = wordsOf(names.at(i)).join(QLatin1Char(' '));
        if (name == wanted) {
            return i;
        }
        if (!begins && name.startsWith(wanted)) {
            best = i;
            begins = true;
        }
    }
    return best;
}
