#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// A page in which all words were found.
struct HelpHit
{
    QString page;
    QString title;
    QString excerpt; ///< the text round the first word; empty when it stands in the title only
};

/// Looks for words in the pages of the help. The texts are read at the first search.
class HelpSearch
{
public:
    /// The words of what was typed, in lower case.
    static QStringList words(const QString &typed);
    /// Pages that hold all words, those with all of them in the title first, then those that hold them most often.
    QVector<HelpHit> find(const QStringList &words);

private:
    struct Page
    {
        QString name;
        QString title;
        QString text;
    };

    void read();
    static QString excerpt(const QString &text, int at);

    QVector<Page> m_pages;
};
