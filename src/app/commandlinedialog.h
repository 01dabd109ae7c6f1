#pragma once

#include "app/commandlinetext.h"

#include <QDialog>

class GraphScene;
class LogWidget;
class Prompts;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

/// Writes the command that runs the open document, for the user to copy.
class CommandLineDialog : public QDialog
{
    Q_OBJECT

public:
    CommandLineDialog(const GraphScene &scene, const QString &documentPath, bool isModified, Prompts &prompts);

private slots:
    void onChanged();
    void onLoopAliasChanged();
    void onBrowseFolder();
    void onCopy();
    void onHelpRequested();

private:
    void buildForm();
    QGroupBox *buildLoop();
    void buildText();
    CommandLineTextOptions options() const;

    Prompts &m_prompts;
    const QList<CommandLineItem> m_items;
    const QString m_documentPath;
    const bool m_isModified;
    QComboBox *m_format;
    QSpinBox *m_pause;
    QComboBox *m_verbosity;
    LogWidget *m_log;
    QCheckBox *m_loop;
    QComboBox *m_loopAlias;
    QLineEdit *m_loopFolder;
    QPushButton *m_browseFolder;
    QLineEdit *m_loopMatching;
    QPlainTextEdit *m_text;
    QLabel *m_warningsLabel;
    QPlainTextEdit *m_warnings;
};
