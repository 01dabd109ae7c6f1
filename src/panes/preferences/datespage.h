#pragma once

#include <QLocale>
#include <QWidget>

class FaultLabel;
class QPlainTextEdit;

/// "Dates": the formats in which dates are looked for.
class DatesPage : public QWidget
{
    Q_OBJECT

public:
    explicit DatesPage(QWidget *parent = nullptr);

    /// The locale whose short date format is among the defaults.
    void setLocale(const QLocale &locale);
    void store();

private:
    void onDefaultUSDateFormats();
    void onDefaultNonUSDateFormats();
    void onChanged();
    QStringList formats() const;

    QPlainTextEdit *m_formats;
    FaultLabel *m_fault;
    const QStringList m_first;
    QLocale m_locale;
};
