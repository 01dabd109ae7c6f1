#pragma once

#include <QDialog>

/// Shows that the program asks for a newer version; closing it ends that.
class CheckUpdatesDlg : public QDialog
{
    Q_OBJECT

public:
    explicit CheckUpdatesDlg(QWidget *parent = nullptr);
};
