#pragma once

#include <QStringList>
#include <QUrl>
#include <QVector>

/// A part of the table of contents: a title, its pages by name, and parts of its own.
struct HelpSection
{
    QString title;
    QStringList pages;
    QVector<HelpSection> sections;
};

/// The pages of the help, which are part of the program: docs/help/NAME.md as :/help/NAME.md, those of transforms as
/// :/help/transforms/NAME.md, pictures as :/help/pictures/NAME.png.
namespace HelpPages {

/// Names of all pages, in alphabetical order.
QStringList names();
bool exists(const QString &name);
/// Where a page is; `name` may end in "#" and the name of a heading. Also for a page that there isn't.
QUrl address(const QString &name);
/// The name of the page at an address, without the heading.
QString nameOf(const QUrl &address);
/// The page in Markdown, with the parts that the program makes; empty when there is no such page.
QString text(const QString &name);
/// Its first heading; a page that there isn't has its name as words.
QString title(const QString &name);
/// The table of contents. A page that it doesn't know stands under "Reference".
QVector<HelpSection> contents();
/// The name by which links reach a heading: lower case, with dashes for blanks and nothing for other signs.
QString anchor(const QString &heading);

} // namespace HelpPages
