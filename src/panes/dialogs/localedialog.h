#pragma once

#include <QDialog>
#include <QLocale>

class QComboBox;
class QLabel;

/// Chooses the locale by language and country, and shows what numbers and dates look like in it.
class LocaleDialog : public QDialog
{
    Q_OBJECT

public:
    explicit LocaleDialog(const QLocale &locale, QWidget *parent = nullptr);

    QLocale chosenLocale() const;

private:
    void fillLanguages();
    void fillCountries(QLocale::Language language);
    void onLanguageChanged();
    void onChanged();

    const QLocale m_first;
    QComboBox *m_language;
    QComboBox *m_country;
    QLabel *m_sample;
};
