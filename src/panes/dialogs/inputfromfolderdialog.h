#pragma once

#include "inputs/inputoptions.h"

#include <QDialog>

class Prompts;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTableWidget;
class QToolButton;
class FolderListing;

/// Asks which files of a folder an input is to read, and shows on request which these are.
class InputFromFolderDialog : public QDialog
{
    Q_OBJECT

public:
    /// Begins with `source`, and with the file type that the extension of its wildcard has. `prompts` outlives this.
    InputFromFolderDialog(const FolderInput &source, Prompts &prompts, QWidget *parent = nullptr);
    ~InputFromFolderDialog() override;

    FolderInput source() const;
    int fileType() const;

public slots:
    void reject() override;

private:
    void makeFields(const FolderInput &source);
    void makeButtons();
    void arrange();
    void onEdited();
    void onBrowse();
    void onList();
    void onCopy();
    void showListing(const FolderListing &listing);
    void setListing(bool on);

    Prompts &m_prompts;
    QLineEdit *m_folder;
    QToolButton *m_browse;
    QCheckBox *m_recurse;
    QLineEdit *m_fileMatch;
    QLineEdit *m_sheetMatch;
    QComboBox *m_type;
    QToolButton *m_list;
    QToolButton *m_stop;
    QToolButton *m_copy;
    QTableWidget *m_table;
    QLabel *m_summary;
    QPlainTextEdit *m_messages;
    bool m_isListing = false;
    bool m_stopRequested = false;
    bool m_isEdited = false; ///< since the listing began
};
