#pragma once

#include <QDialog>

class QComboBox;

/// Asks which kind of file something is.
class FileTypeDialog : public QDialog
{
    Q_OBJECT

public:
    /// `types` are numbers of FileType; `current` is chosen first, or the first type where it isn't among them. A
    /// `note` stands below the list.
    FileTypeDialog(const QString &title, const QString &text, const QList<int> &types, int current,
        const QString &note = QString(), QWidget *parent = nullptr);

    int fileType() const;

private:
    QComboBox *m_types;
};
