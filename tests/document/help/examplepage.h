#pragma once

#include "document/help/markdowntable.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

/// What the worked example of a page says or a run of it gives.
struct ExampleOutcome
{
    MarkdownTable options; ///< in the words of the item's details; no rows for a kind without options
    MarkdownTable result;
    QStringList warnings; ///< line by line
};

/// The help page of a kind of transform, with its worked example. In the example stand, each below a line in bold,
/// "Input" (or "Input, top" and so on, from top to bottom), "Options", "Result" and, if there are any, "Warnings".
/// Comments that readers don't see hold the options as a document would, those that a new item hasn't anyway; each is
/// one line, since longer ones are shown:
///
///     <!-- example Columns=1|3 -->
///     <!-- example Case=Upper case -->
///
/// "|" parts the entries of one option, and such characters as mean something here are percent-encoded. The comment
/// "example of this shape" tells that each run gives other cells.
class ExamplePage
{
public:
    /// A page that can't be read is empty.
    explicit ExamplePage(const QString &path);

    QString title() const;
    /// Without the sign, in their order.
    QStringList headings() const;
    /// The lines below a heading of the second level.
    QStringList section(const QString &heading) const;
    /// Targets of all links.
    QStringList links() const;

    QList<MarkdownTable> inputs() const;
    /// Name and text, decoded once, as options take them.
    QList<QPair<QString, QString>> storedOptions() const;
    bool hasOnlyShape() const;
    /// The help window draws a cell without a text as part of the one before.
    bool hasEmptyCells() const;
    /// Signs in tables, such as that for a blank, of which no sentence says what they stand for.
    QString unexplainedSigns() const;
    ExampleOutcome outcome() const;

    /// Puts what a run gave in place of what the page says; false if it can't be written.
    bool record(const ExampleOutcome &outcome);

private:
    QStringList inputNames() const;
    /// First and one past the last line of what stands below the line in bold `name`, blank lines left out.
    QPair<int, int> partOf(const QString &name) const;
    MarkdownTable tableOf(const QString &name) const;
    void replacePart(const QString &name, const QStringList &lines);

    const QString m_path;
    QStringList m_lines;
};
