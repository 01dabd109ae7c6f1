#include "panes/dialogs/localedialog.h"

#include "panes/dialogs/helphook.h"
#include "panes/widgets/keptgeometry.h"
#include "settings/settings.h"

#include <QComboBox>
#include <QDate>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QMap>
#include <QVBoxLayout>

namespace {

/// Texts by which to choose, in alphabetical order, with the numbers that they stand for.
using Choices = QMap<QString, int>;

void fill(QComboBox &combo, const Choices &choices)
{
    combo.clear();
    for (auto it = choices.cbegin(); it != choices.cend(); ++it) {
        combo.addItem(it.key(), it.value());
    }
}

QList<QLocale> localesOf(QLocale::Language language)
{
    return QLocale::matchingLocales(language, QLocale::AnyScript, QLocale::AnyCountry);
}

} // namespace

LocaleDialog::LocaleDialog(const QLocale &locale, QWidget *parent)
    : QDialog(parent)
    , m_first(locale)
    , m_language(new QComboBox)
    , m_country(new QComboBox)
    , m_sample(new QLabel)
{
    setWindowTitle(QStringLiteral("Locale[*]"));
    HelpHook::setHelpPage(*this, QStringLiteral("Formats_and_dates#locale"));
    m_language->setToolTip(QStringLiteral("The language of month and day names."));
    m_country->setToolTip(QStringLiteral("The country whose numbers, dates and times are meant."));
    m_sample->setTextFormat(Qt::PlainText);
    m_sample->setAccessibleName(QStringLiteral("Example"));
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("&Language:"), m_language);
    form->addRow(QStringLiteral("&Country:"), m_country);
    form->addRow(QStringLiteral("Example:"), m_sample);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addWidget(buttons);
    fillLanguages();
    connect(m_language, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &LocaleDialog::onLanguageChanged);
    connect(m_country, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &LocaleDialog::onChanged);
    onChanged();
    keepGeometry(*this, &Settings::localeWindowGeometry, &Settings::setLocaleWindowGeometry);
}

void LocaleDialog::fillLanguages()
{
    Choices languages;
    for (int language = QLocale::C + 1; language <= QLocale::LastLanguage; ++language) {
        if (!localesOf(static_cast<QLocale::Language>(language)).isEmpty()) {
            languages.insert(QLocale::languageToString(static_cast<QLocale::Language>(language)), language);
        }
    }
    languages.insert(QLocale::languageToString(m_first.language()), m_first.language());
    fill(*m_language, languages);
    m_language->setCurrentIndex(m_language->findData(m_first.language()));
    fillCountries(m_first.language());
    m_country->setCurrentIndex(m_country->findData(m_first.country()));
}

void LocaleDialog::fillCountries(QLocale::Language language)
{
    Choices countries;
    for (const QLocale &locale : localesOf(language)) {
        countries.insert(QLocale::countryToString(locale.country()), locale.country());
    }
    if (language == m_first.language()) {
        countries.insert(QLocale::countryToString(m_first.country()), m_first.country());
    }
    fill(*m_country, countries);
}

void LocaleDialog::onLanguageChanged()
{
    const auto language = static_cast<QLocale::Language>(m_language->currentData().toInt());
    fillCountries(language);
    // The country where most speak the language.
    m_country->setCurrentIndex(qMax(0, m_country->findData(QLocale(language).country())));
    onChanged();
}

QLocale LocaleDialog::chosenLocale() const
{
    return {static_cast<QLocale::Language>(m_language->currentData().toInt()),
        static_cast<QLocale::Country>(m_country->currentData().toInt())};
}

void LocaleDialog::onChanged()
{
    const QLocale locale = chosenLocale();
    const QDate date(QDate::currentDate().year(), 2, 1);
    m_sample->setText(QStringLiteral("%1   %2   %3")
                          .arg(locale.toString(-1234567.89, 'f', 2), locale.toString(date, QLocale::ShortFormat),
                              locale.toString(date, QLocale::LongFormat)));
    setWindowModified(locale != m_first);
}
