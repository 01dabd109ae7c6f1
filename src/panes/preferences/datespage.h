#pragma once

#include <QWidget>

class QLabel;
class QPlainTextEdit;

/// "Dates": the formats in which dates are looked for.
class DatesPage : public QWidget
{
    Q_OBJECT

public:
    explicit DatesPage(QWidget *parent = nullptr);

    void store();

private:
    void onDefaultUSDateFormats();
    void onDefaultNonUSDateFormats();
    void onChanged();
    QStringList formats() const;

    QPlainTextEdit *m_formats;
    QLabel *m_fault;
    const QStringList m_first;
};
