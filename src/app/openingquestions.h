#pragma once

#include <QList>
#include <QString>

class GraphScene;
class InputNode;
class Prompts;

/// What a document asks the user while it is opened in a window. Each function returns true when the document has
/// changed by the answer.
namespace OpeningQuestions {

/// Looks for files and folders that inputs name and that are gone, and asks for others.
bool replaceMissingInputs(GraphScene &scene, const QString &documentPath, Prompts &prompts);
/// At most five paths, one a line, and how many more there are; an empty path is "<unset>".
QString missingList(const QStringList &paths);
/// Acts by the setting on a document that wants to run by itself and would write files; `autoRun` may become false.
bool guardOutputs(GraphScene &scene, const QString &documentPath, bool &autoRun, Prompts &prompts);
/// One line for each file that a run would write, at most twenty; empty when none would be.
QString writtenFilesList(const GraphScene &scene);

} // namespace OpeningQuestions
