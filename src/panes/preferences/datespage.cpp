#include "panes/preferences/datespage.h"

#include "panes/widgets/faultlabel.h"
#include "panes/widgets/plaintext.h"
#include "settings/settings.h"
#include "settings/settingsdefaults.h"
#include "transforms/options/optionchecks.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

QStringList linesOf(const QString &text)
{
    QStringList lines;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        if (!line.trimmed().isEmpty()) {
            lines.append(line.trimmed());
        }
    }
    return lines;
}

} // namespace

DatesPage::DatesPage(QWidget *parent)
    : QWidget(parent)
    , m_formats(new QPlainTextEdit)
    , m_fault(new FaultLabel)
    , m_first(Settings::current().dateFormats())
    , m_locale(Settings::current().locale())
{
    auto *label = new QLabel(QStringLiteral("Supported date formats (1 per line):"));
    label->setBuddy(m_formats);
    m_formats->setAccessibleName(label->text());
    m_formats->setToolTip(QStringLiteral("A value is taken for a date if it has one of these formats. The first that "
                                         "fits wins."));
    m_formats->setTabChangesFocus(true);
    m_formats->setPlainText(m_first.join(QLatin1Char('\n')));
    auto *us = new QPushButton(QStringLiteral("Default (US)"));
    auto *other = new QPushButton(QStringLiteral("Default (non-US)"));
    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : {us, other}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    buttons->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_formats, 1);
    layout->addWidget(m_fault);
    layout->addLayout(buttons);
    connect(us, &QPushButton::clicked, this, &DatesPage::onDefaultUSDateFormats);
    connect(other, &QPushButton::clicked, this, &DatesPage::onDefaultNonUSDateFormats);
    connect(m_formats, &QPlainTextEdit::textChanged, this, &DatesPage::onChanged);
    onChanged();
}

QStringList DatesPage::formats() const
{
    return linesOf(plainTextOf(*m_formats));
}

void DatesPage::onDefaultUSDateFormats()
{
    m_formats->setPlainText(SettingsDefaults::dateFormats(true, m_locale));
}

void DatesPage::onDefaultNonUSDateFormats()
{
    m_formats->setPlainText(SettingsDefaults::dateFormats(false, m_locale));
}

void DatesPage::setLocale(const QLocale &locale)
{
    m_locale = locale;
}

void DatesPage::onChanged()
{
    QStringList faults;
    for (const QString &format : formats()) {
        const QString fault = OptionChecks::dateFormat(format);
        if (!fault.isEmpty()) {
            faults.append(fault);
        }
    }
    if (formats().isEmpty()) {
        faults.append(QStringLiteral("Without formats no value is taken for a date"));
    }
    m_fault->setFaults(faults);
}

void DatesPage::store()
{
    if (formats() != m_first) {
        Settings::current().setDateFormats(formats());
    }
}
