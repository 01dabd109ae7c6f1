#pragma once

#include "panes/dialogs/filetypedialog.h"

/// Asks for the type that files with an unknown extension have from now on.
class FileExtensionTypeDialog : public FileTypeDialog
{
    Q_OBJECT

public:
    FileExtensionTypeDialog(const QString &extension, const QList<int> &types, int proposed, QWidget *parent = nullptr);
};
