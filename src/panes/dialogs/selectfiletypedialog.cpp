#include "panes/dialogs/selectfiletypedialog.h"

#include "settings/filetypes.h"

#include <QDir>

SelectFileTypeDialog::SelectFileTypeDialog(const QString &path, int proposed, int previous, QWidget *parent)
    : FileTypeDialog(QStringLiteral("Select File Type"),
        QStringLiteral("Select a file type for '%1' (previously '%2')")
            .arg(QDir::toNativeSeparators(path), FileType::label(previous)),
        FileType::inputTypes(), proposed, QString(), parent)
{
}
