#pragma once

#include <QDialog>

/// A text and a button to close it, laid out when it is made: showing it takes next to no memory.
class TextLabelDialog : public QDialog
{
    Q_OBJECT

public:
    TextLabelDialog(const QString &title, const QString &text, QWidget *parent = nullptr);
};
