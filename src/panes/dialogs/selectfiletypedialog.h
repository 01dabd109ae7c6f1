#pragma once

#include "panes/dialogs/filetypedialog.h"

/// Asks for the type of an input's new file, whose extension speaks for another type than its old one.
class SelectFileTypeDialog : public FileTypeDialog
{
    Q_OBJECT

public:
    SelectFileTypeDialog(const QString &path, int proposed, int previous, QWidget *parent = nullptr);
};
