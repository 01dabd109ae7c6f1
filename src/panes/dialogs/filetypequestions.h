#pragma once

#include <QStringList>

class Prompts;

/// What is asked where the extension of a file doesn't tell its type. The answers are kept with the settings.
namespace FileTypeQuestions {

/// The type of an output by its extension, or what the user says where that is unknown; `fallback` for a path without
/// one, for one that ends in a variable, and after Cancel.
int fileTypeForExtension(Prompts &prompts, const QString &path, int fallback);
/// Asks once for each unknown extension of files that become inputs, until Cancel is pressed.
void learnInputTypes(Prompts &prompts, const QStringList &paths);
/// The type of an input whose file was `oldPath` and is `path` now: `oldType`, unless the new extension speaks for
/// another type and the user agrees.
int inputTypeAfterChange(Prompts &prompts, const QString &oldPath, const QString &path, int oldType);

} // namespace FileTypeQuestions
