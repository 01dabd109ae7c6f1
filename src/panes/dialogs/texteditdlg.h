#pragma once

#include <QDialog>

/// A text of any length, to be read and copied but not changed, with OK and Cancel below it.
class TextEditDlg : public QDialog
{
    Q_OBJECT

public:
    TextEditDlg(const QString &title, const QString &text, QWidget *parent = nullptr);
};
