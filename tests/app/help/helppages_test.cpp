#include "app/actiontable.h"
#include "app/help/helpbrowser.h"
#include "app/help/helppages.h"
#include "app/help/helpsearch.h"
#include "transforms/catalogue.h"

#include <QFile>
#include <QKeySequence>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

struct Link
{
    QString target;
    bool isPicture;
};

QVector<Link> linksOf(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("(!?)\\[[^\\]]*\\]\\(([^)]*)\\)"));
    QVector<Link> links;
    auto match = pattern.globalMatch(text);
    while (match.hasNext()) {
        const auto one = match.next();
        links.append({one.captured(2), !one.captured(1).isEmpty()});
    }
    return links;
}

QStringList anchorsOf(const QString &page)
{
    QStringList anchors;
    for (const QString &line : HelpPages::text(page).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1Char('#'))) {
            QString heading = line;
            anchors.append(HelpPages::anchor(heading.remove(QRegularExpression(QStringLiteral("^#+ *")))));
        }
    }
    return anchors;
}

/// Empty when the link leads to something.
QString faultOf(const QUrl &from, const Link &link)
{
    const QUrl target = from.resolved(QUrl(link.target));
    if (target.scheme() != QLatin1String("qrc") || link.target.startsWith(QLatin1String("search:"))) {
        return QString();
    }
    if (!QFile::exists(QLatin1Char(':') + target.path())) {
        return QStringLiteral("nothing at ") + link.target;
    }
    if (target.hasFragment() && !anchorsOf(HelpPages::nameOf(target)).contains(target.fragment())) {
        return QStringLiteral("no heading for ") + link.target;
    }
    return QString();
}

TEST(HelpPages, EveryLinkAndPictureOfEveryPageLeadsSomewhere)
{
    ASSERT_GT(HelpPages::names().size(), 20);
    for (const QString &name : HelpPages::names()) {
        for (const Link &link : linksOf(HelpPages::text(name))) {
            EXPECT_EQ(faultOf(HelpPages::address(name), link), QString()) << name.toStdString();
        }
    }
}

TEST(HelpPages, EveryPageBeginsWithItsTitleAndStandsInTheContentsOnce)
{
    QStringList listed;
    const std::function<void(const QVector<HelpSection> &)> collect = [&](const QVector<HelpSection> &sections) {
        for (const HelpSection &section : sections) {
            listed += section.pages;
            collect(section.sections);
        }
    };
    collect(HelpPages::contents());
    listed.sort(Qt::CaseInsensitive);
    EXPECT_EQ(listed, HelpPages::names());
    for (const QString &name : HelpPages::names()) {
        EXPECT_TRUE(HelpPages::text(name).startsWith(QStringLiteral("# "))) << name.toStdString();
    }
}

TEST(HelpPages, EveryTransformHasAPage)
{
    for (const CatalogueRow &row : Catalogue::rows()) {
        EXPECT_TRUE(HelpPages::exists(QString::fromLatin1(row.typeName))) << row.typeName;
    }
}

TEST(HelpPages, EveryPageThatTheProgramAsksForExists)
{
    for (const char *name : {"Introduction", "Expert_tips", "Keyboard_shortcuts", "Quick_start_guide", "Input_data",
             "Output_data", "Chart_data", "Comments", "Preferences_window", "Batch_processing", "Command_line",
             "Flow_report", "Connections", "Column_variables", "Formats_and_dates", "Regular_expressions", "Data_table",
             "Column_values", "Compare_data", "Compare_headers", "Explore_duplicates", "Explore_keys", "Drilldown",
             "Find_items", "Item_summary"}) {
        EXPECT_TRUE(HelpPages::exists(QString::fromLatin1(name))) << name;
    }
    const QVector<Link> inCode{{QStringLiteral("Input_data.md#fixed-width-files"), false},
        {QStringLiteral("Input_data.md#schema"), false}, {QStringLiteral("Input_data.md#from-a-folder"), false},
        {QStringLiteral("Formats_and_dates.md#locale"), false},
        {QStringLiteral("Comments.md#notes-on-a-document"), false},
        {QStringLiteral("Preferences_window.md#general"), false}, {QStringLiteral("Data_table.md#cells"), false},
        {QStringLiteral("Data_table.md#row-values"), false}};
    for (const Link &link : inCode) {
        EXPECT_EQ(faultOf(HelpPages::address(QStringLiteral("Introduction")), link), QString());
    }
}

TEST(HelpPages, ThePageOfKeysNamesEachKeyOfTheActionTableAsTheUserSeesIt)
{
    HelpBrowser browser;
    browser.showPage(QStringLiteral("Keyboard_shortcuts"));
    const QString page = browser.toPlainText();
    for (const ActionRow &row : ActionTable()) {
        for (const QString &key : QString::fromLatin1(row.shortcut).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            EXPECT_TRUE(page.contains(QKeySequence(key).toString(QKeySequence::NativeText))) << row.name;
        }
    }
}

TEST(HelpPages, ShownPagesHaveNoSignsOfMarkdownOrCommentsLeft)
{
    HelpBrowser browser;
    for (const QString &name : HelpPages::names()) {
        browser.showPage(name);
        const QString shown = browser.toPlainText();
        EXPECT_FALSE(shown.isEmpty()) << name.toStdString();
        for (const char *sign : {"](", "<!--", "| ---", "**"}) {
            EXPECT_FALSE(shown.contains(QLatin1String(sign))) << name.toStdString() << " shows " << sign;
        }
    }
}

TEST(HelpSearch, PagesNeedAllWordsAndTitlesComeFirst)
{
    HelpSearch search;
    const QVector<HelpHit> hits = search.find(HelpSearch::words(QStringLiteral("  Batch ")));
    ASSERT_GT(hits.size(), 1);
    EXPECT_EQ(hits.first().page, QStringLiteral("Batch_processing"));
    EXPECT_TRUE(hits.at(1).excerpt.contains(QStringLiteral("batch"), Qt::CaseInsensitive));

    const int both = search.find({QStringLiteral("batch"), QStringLiteral("wildcard")}).size();
    EXPECT_GT(both, 0);
    EXPECT_LT(both, hits.size());
    EXPECT_TRUE(search.find({QStringLiteral("batch"), QStringLiteral("zzzz")}).isEmpty());
    EXPECT_TRUE(search.find(HelpSearch::words(QStringLiteral("   "))).isEmpty());
}

} // namespace
