#pragma once

#include <QStringList>
#include <QVector>

/// The flows that come with the program, each with the files that it reads. They are opened as copies in a folder of
/// the user's, since the installed ones can't be changed and write nothing beside themselves.
namespace Examples {

struct Example
{
    QString document; ///< the file's name
    QString title;    ///< what the flow does
};

/// In the order in which menus show them.
const QVector<Example> &all();

/// Where the copies lie: "Quillmere examples" among the user's documents.
QString folder();

/// Copies documents and inputs from `source` to `target`, but for files that are there already: those are the user's.
/// False leaves in `error` why it couldn't.
bool copy(const QString &source, const QString &target, QString &error);

} // namespace Examples
