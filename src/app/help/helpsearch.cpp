#include "app/help/helpsearch.h"

#include "app/help/helppages.h"

#include <QRegularExpression>
#include <algorithm>
#include <tuple>

namespace {

constexpr int before = 40;
constexpr int excerptLength = 120;

/// The text as it is read, without the signs of Markdown.
QString withoutMarkup(QString text)
{
    static const QRegularExpression link(QStringLiteral("!?\\[([^\\]]*)\\]\\([^)]*\\)"));
    static const QRegularExpression rule(QStringLiteral("\\|( *:?-+:? *\\|)+"));
    static const QRegularExpression signs(QStringLiteral("[*`|#\\\\]|^> ?|^- "), QRegularExpression::MultilineOption);
    text.replace(link, QStringLiteral("\\1")).remove(rule).replace(signs, QStringLiteral(" "));
    return text.simplified();
}

} // namespace

QStringList HelpSearch::words(const QString &typed)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    return typed.toLower().split(blanks, Qt::SkipEmptyParts);
}

void HelpSearch::read()
{
    for (const QString &name : HelpPages::names()) {
        const QString title = HelpPages::title(name);
        const QString text = withoutMarkup(HelpPages::text(name));
        m_pages.append({name, title, text.startsWith(title) ? text.mid(title.size() + 1) : text});
    }
}

QVector<HelpHit> HelpSearch::find(const QStringList &words)
{
    if (m_pages.isEmpty()) {
        read();
    }
    struct Found
    {
        bool inTitle;
        int count;
        HelpHit hit;
    };
    QVector<Found> found;
    for (const Page &page : m_pages) {
        const auto holds = [](const QString &text, const QString &word) {
            return text.contains(word, Qt::CaseInsensitive);
        };
        const auto inTitle = [&](const QString &word) { return holds(page.title, word); };
        const auto inPage = [&](const QString &word) { return inTitle(word) || holds(page.text, word); };
        if (words.isEmpty() || !std::all_of(words.begin(), words.end(), inPage)) {
            continue;
        }
        int count = 0;
        int first = -1;
        for (const QString &word : words) {
            count += page.text.count(word, Qt::CaseInsensitive);
            first = first < 0 ? page.text.indexOf(word, 0, Qt::CaseInsensitive) : first;
        }
        found.append({std::all_of(words.begin(), words.end(), inTitle), count,
            {page.name, page.title, excerpt(page.text, first)}});
    }
    std::stable_sort(found.begin(), found.end(), [](const Found &a, const Found &b) {
        return std::make_tuple(!a.inTitle, -a.count) < std::make_tuple(!b.inTitle, -b.count);
    });
    QVector<HelpHit> hits;
    for (const Found &one : found) {
        hits.append(one.hit);
    }
    return hits;
}

QString HelpSearch::excerpt(const QString &text, int at)
{
    if (at < 0) {
        return QString();
    }
    int start = qMax(0, at - before);
    if (start > 0) {
        start = text.indexOf(QLatin1Char(' '), start) + 1;
    }
    QString part = text.mid(start, excerptLength);
    if (start + part.size() < text.size()) {
        part.truncate(part.lastIndexOf(QLatin1Char(' ')));
    }
    const QString dots = QStringLiteral("…");
    return (start > 0 ? dots : QString()) + part + (start + part.size() < text.size() ? dots : QString());
}
