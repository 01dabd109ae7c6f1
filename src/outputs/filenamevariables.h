#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

/// Variables in braces that may stand in the path of a file to be written, in its sheet's name and in its comment:
/// parts of an input's path by the input's alias, date and time, and where and by whom the program is run.
namespace FileNameVariables {

/// An input that variables name by its alias.
struct Source
{
    QString alias;
    /// A file or folder.
    QString path;
    QString sheet;
};

/// What the variables are taken from. The first of several sources with one alias wins.
struct Context
{
    QList<Source> sources;
    /// Empty while the document isn't saved.
    QString documentPath;
};

/// Replaces the variables in both texts; what isn't one stays. `now` is the time that date and time are taken from.
void expand(QString &path, QString &sheet, const Context &context, const QDateTime &now = QDateTime::currentDateTime());
/// The same for a text alone.
QString expanded(const QString &text, const Context &context, const QDateTime &now = QDateTime::currentDateTime());

/// The variables that need no alias, such as "{date}", in the order in which tool tips list them.
QStringList names();

} // namespace FileNameVariables
