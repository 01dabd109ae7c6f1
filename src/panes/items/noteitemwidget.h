#pragma once

#include "panes/items/itemwidget.h"

#include <QTimer>

class NoteNode;
class QComboBox;
class QPlainTextEdit;
class QPushButton;

/// The panel of a note: its text, where its arrow points, and its colour.
class NoteItemWidget : public ItemWidget
{
    Q_OBJECT

public:
    explicit NoteItemWidget(NoteNode &note, QWidget *parent = nullptr);

    void refresh() override;
    void takeTyped() override;
    void typeText(QChar c) override;

private:
    NoteNode *note() const;
    void chooseColor();
    void setArrow(int arrow);
    void showColor();

    QPlainTextEdit *m_text;
    QComboBox *m_arrow;
    QPushButton *m_color;
    QTimer m_pause; ///< what is typed is taken over in the pauses of typing
};
