#include "app/help/helppages.h"

#include "app/help/shortcuttable.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>

// A resource in a library has to be asked for by name, outside any namespace.
static void loadHelpResource()
{
    Q_INIT_RESOURCE(help);
}

namespace {

const QString suffix = QStringLiteral(".md");

QString folderOf(const QString &name)
{
    loadHelpResource();
    const QString transforms = QStringLiteral("/help/transforms/");
    return QFile::exists(QLatin1Char(':') + transforms + name + suffix) ? transforms : QStringLiteral("/help/");
}

QString fileOf(const QString &name)
{
    return QLatin1Char(':') + folderOf(name) + name + suffix;
}

QStringList namesIn(const QString &folder)
{
    QStringList names;
    for (const QString &file : QDir(folder).entryList({QLatin1Char('*') + suffix}, QDir::Files)) {
        names.append(file.left(file.size() - suffix.size()));
    }
    return names;
}

HelpSection section(const char *title, std::initializer_list<const char *> pages)
{
    HelpSection result;
    result.title = QString::fromLatin1(title);
    for (const char *page : pages) {
        if (HelpPages::exists(QString::fromLatin1(page))) {
            result.pages.append(QString::fromLatin1(page));
        }
    }
    return result;
}

HelpSection transformSection()
{
    HelpSection all;
    all.title = QStringLiteral("Transforms");
    for (int category = Transform::Merge; category <= Transform::Other; ++category) {
        HelpSection part;
        part.title = Transform::categoryName(category, false);
        for (const CatalogueRow &row : Catalogue::rows()) {
            const QString page = QString::fromLatin1(row.typeName);
            if (row.category == category && HelpPages::exists(page)) {
                part.pages.append(page);
            }
        }
        all.sections.append(part);
    }
    return all;
}

QStringList pagesOf(const HelpSection &part)
{
    QStringList pages = part.pages;
    for (const HelpSection &inner : part.sections) {
        pages += pagesOf(inner);
    }
    return pages;
}

} // namespace

QStringList HelpPages::names()
{
    loadHelpResource();
    QStringList all = namesIn(QStringLiteral(":/help")) + namesIn(QStringLiteral(":/help/transforms"));
    all.sort(Qt::CaseInsensitive);
    return all;
}

bool HelpPages::exists(const QString &name)
{
    return !name.isEmpty() && QFile::exists(fileOf(name));
}

QUrl HelpPages::address(const QString &name)
{
    const int hash = name.indexOf(QLatin1Char('#'));
    const QString page = name.left(hash);
    QUrl url(QStringLiteral("qrc:") + folderOf(page) + page + suffix);
    if (hash >= 0) {
        url.setFragment(name.mid(hash + 1));
    }
    return url;
}

QString HelpPages::nameOf(const QUrl &address)
{
    const QString file = address.fileName();
    return file.endsWith(suffix) ? file.left(file.size() - suffix.size()) : file;
}

QString HelpPages::text(const QString &name)
{
    QFile file(fileOf(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return QString();
    }
    QString text = QString::fromUtf8(file.readAll());
    text.replace(QLatin1String("<!-- table of shortcuts -->"), shortcutTable());
    static const QRegularExpression comment(
        QStringLiteral("<!--.*?-->\\n?"), QRegularExpression::DotMatchesEverythingOption);
    return text.remove(comment);
}

QString HelpPages::title(const QString &name)
{
    QFile file(fileOf(name));
    if (file.open(QIODevice::ReadOnly)) {
        while (!file.atEnd()) {
            const QString line = QString::fromUtf8(file.readLine()).trimmed();
            if (line.startsWith(QLatin1String("# "))) {
                return line.mid(2);
            }
        }
    }
    return QString(name).replace(QLatin1Char('_'), QLatin1Char(' '));
}

QVector<HelpSection> HelpPages::contents()
{
    HelpSection start = section("Start here", {"Introduction", "Quick_start_guide", "Examples", "Expert_tips"});
    HelpSection items = section(
        "Items of a flow", {"Input_data", "Input_from_folder", "Output_data", "Chart_data", "Comments", "Connections"});
    HelpSection explore = section(
        "Explore and check", {"Data_table", "Column_values", "Compare_data", "Compare_headers", "Explore_duplicates",
                                 "Explore_keys", "Drilldown", "Find_items", "Item_summary"});
    HelpSection many = section("Run again and again", {"Running", "Batch_processing", "Command_line", "Flow_report"});
    HelpSection reference = section(
        "Reference", {"Keyboard_shortcuts", "Preferences_window", "Column_variables", "Formats_and_dates",
                         "Regular_expressions", "Javascript_reference"});
    QVector<HelpSection> all{start, items, transformSection(), explore, many, reference};
    QStringList listed;
    for (const HelpSection &part : all) {
        listed += pagesOf(part);
    }
    for (const QString &name : names()) {
        if (!listed.contains(name)) {
            all.last().pages.append(name);
        }
    }
    all.erase(std::remove_if(all.begin(), all.end(), [](const HelpSection &part) { return pagesOf(part).isEmpty(); }),
        all.end());
    return all;
}

QString HelpPages::anchor(const QString &heading)
{
    QString result;
    for (const QChar c : heading.toLower()) {
        if (c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('-')) {
            result.append(c);
        } else if (c.isSpace()) {
            result.append(QLatin1Char('-'));
        }
    }
    return result;
}
