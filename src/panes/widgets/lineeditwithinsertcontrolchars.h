#pragma once

#include <QLineEdit>

/// A line of text into which characters that no key types can be put from its context menu or with Ctrl+I.
class LineEditWithInsertControlChars : public QLineEdit
{
    Q_OBJECT

public:
    explicit LineEditWithInsertControlChars(QWidget *parent = nullptr);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addCharacters(QMenu &menu);
    void popUpCharacters();
};
