#pragma once

#include <QDialog>

class QLineEdit;

/// Asks what to put before and behind column names.
class PrefixSuffixDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PrefixSuffixDialog(QWidget *parent = nullptr);

    QString prefix() const;
    QString suffix() const;

private:
    QLineEdit *m_prefix;
    QLineEdit *m_suffix;
};
