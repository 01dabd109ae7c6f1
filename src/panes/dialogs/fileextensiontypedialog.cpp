#include "panes/dialogs/fileextensiontypedialog.h"

FileExtensionTypeDialog::FileExtensionTypeDialog(
    const QString &extension, const QList<int> &types, int proposed, QWidget *parent)
    : FileTypeDialog(QStringLiteral("Set Default File Type"),
        QStringLiteral("Select a default file type for extension '%1'.").arg(extension), types, proposed,
        QStringLiteral("You can change this later in the 'Preferences' window."), parent)
{
}
