#pragma once

#include <QDialog>

class QCheckBox;
class QPlainTextEdit;

/// The text of one cell, to be read and copied but not changed.
class ValueDialog : public QDialog
{
    Q_OBJECT

public:
    /// An editor lays out the whole of a line, so of longer texts only this many characters are shown.
    static constexpr int longestShown = 100000;

    ValueDialog(const QString &place, const QString &value, QWidget *parent = nullptr);

private:
    void showValue();
    void copyValue();
    QString sizeText() const;

    QString m_value;
    QPlainTextEdit *m_edit;
    QCheckBox *m_whitespace;
};
