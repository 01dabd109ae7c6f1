#include "panes/dialogs/filetypequestions.h"

#include "panes/dialogs/fileextensiontypedialog.h"
#include "panes/dialogs/prompts.h"
#include "panes/dialogs/selectfiletypedialog.h"
#include "settings/filetypes.h"
#include "settings/settings.h"

#include <QFileInfo>

namespace {

QString extensionOf(const QString &path)
{
    return QFileInfo(path).suffix().toLower();
}

/// FileType::None for Cancel.
int askForType(Prompts &prompts, const QString &extension, const QList<int> &types, int proposed)
{
    FileExtensionTypeDialog dialog(extension, types, proposed, prompts.window());
    return prompts.exec(dialog) == QDialog::Accepted ? dialog.fileType() : int(FileType::None);
}

/// What files of the extension that become inputs hold; None for Cancel.
int askForInputType(Prompts &prompts, const QString &extension)
{
    Settings &settings = Settings::current();
    const int type = askForType(prompts, extension, FileType::inputTypes(), FileType::Delimited);
    if (type != FileType::None) {
        SettingsExtensions known = settings.inputFileExtensions();
        known.insert(extension, type);
        settings.setInputFileExtensions(known);
    }
    return type;
}

} // namespace

int FileTypeQuestions::fileTypeForExtension(Prompts &prompts, const QString &path, int fallback)
{
    Settings &settings = Settings::current();
    const QString extension = extensionOf(path);
    int type = settings.outputTypeOf(extension);
    if (type != FileType::None) {
        return type;
    }
    const bool endsInVariable = extension.contains(QLatin1Char('}'));
    if (!extension.isEmpty() && !endsInVariable) {
        type = askForType(prompts, extension, FileType::outputTypes(), fallback);
    }
    if (type == FileType::None) {
        return fallback;
    }
    SettingsExtensions known = settings.outputFileExtensions();
    known.insert(extension, type);
    settings.setOutputFileExtensions(known);
    return type;
}

void FileTypeQuestions::learnInputTypes(Prompts &prompts, const QStringList &paths)
{
    for (const QString &path : paths) {
        const QString extension = extensionOf(path);
        const bool isUnknown = !extension.isEmpty() && Settings::current().inputTypeOf(extension) == FileType::None;
        if (isUnknown && askForInputType(prompts, extension) == FileType::None) {
            return; // a thousand kinds of file may have been dropped at once
        }
    }
}

int FileTypeQuestions::inputTypeAfterChange(Prompts &prompts, const QString &oldPath, const QString &path, int oldType)
{
    const QString extension = extensionOf(path);
    if (extension.isEmpty() || extension == extensionOf(oldPath)) {
        return oldType;
    }
    const int type = Settings::current().inputTypeOf(extension);
    if (type == FileType::None) {
        const int answer = askForInputType(prompts, extension);
        return answer == FileType::None ? oldType : answer;
    }
    if (type == oldType) {
        return oldType;
    }
    SelectFileTypeDialog dialog(path, type, oldType, prompts.window());
    return prompts.exec(dialog) == QDialog::Accepted ? dialog.fileType() : oldType;
}
