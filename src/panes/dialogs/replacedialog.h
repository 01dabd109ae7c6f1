#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

/// Asks what to replace in column names, and with what.
class ReplaceDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ReplaceDialog(QWidget *parent = nullptr);

    /// The place of the match type in "Text", "Exact text", "Regex".
    int matchType() const;
    QString find() const;
    QString with() const;
    bool isCaseSensitive() const;

private:
    /// Says why a regular expression isn't one, and then takes no OK.
    void check();

    QComboBox *m_type;
    QLineEdit *m_find;
    QLineEdit *m_with;
    QCheckBox *m_caseSensitive;
    QLabel *m_error;
    class QPushButton *m_ok;
};
