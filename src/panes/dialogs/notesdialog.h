#pragma once

#include <QDialog>

class QPlainTextEdit;

/// Edits the notes of the document.
class NotesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit NotesDialog(const QString &notes, QWidget *parent = nullptr);

    QString notes() const;

private:
    QPlainTextEdit *m_edit;
};
