#include "panes/preferences/generalpage.h"

#include "panes/dialogs/localedialog.h"
#include "panes/dialogs/prompts.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>

namespace {

constexpr double leastGiB = 0.5;
constexpr double mostGiB = 1024.0;
enum Place { SystemStore, PortableFile };

QString nameOf(const QLocale &locale)
{
    return QLocale::languageToString(locale.language()) + QLatin1Char('/') + QLocale::countryToString(locale.country());
}

} // namespace

GeneralPage::GeneralPage(const PreferencesStore &store, Prompts &prompts, QWidget *parent)
    : SettingRows(parent)
    , m_store(store)
    , m_prompts(prompts)
{
    addStarting();
    addRunning();
    addLocale();
    addFlag(QStringLiteral("warn on locale change"),
        QStringLiteral("Warn when opening a .transform file changes the locale."), &Settings::warnOnLocaleChange,
        &Settings::setWarnOnLocaleChange);
    addFlag(QStringLiteral("make a sound when processing completed"),
        QStringLiteral("Check to make a system sound every time processing is completed."),
        &Settings::beepAfterProcessing, &Settings::setBeepAfterProcessing);
}

void GeneralPage::addStarting()
{
    addChoice<StartChoice>(QStringLiteral("At start-up:"), QStringLiteral("File open behavior at start-up."),
        {QStringLiteral("Don't open anything"), QStringLiteral("Open previous"),
            QStringLiteral("Show 'Open Recent' window"), QStringLiteral("Show this window")},
        &Settings::openPreviousAtStart, &Settings::setOpenPreviousAtStart);
    addChoice<AutoRunChoice>(QStringLiteral("Opening a .transform with auto run:"),
        QStringLiteral("Choose what to do when opening a .transform with 'Run>Auto Run' checked.\nIgnored when run in "
                       "command line mode (-cli)."),
        {QStringLiteral("Leave auto run enabled"), QStringLiteral("Prompt to disable auto run"),
            QStringLiteral("Prompt to disable outputs"), QStringLiteral("Disable auto run"),
            QStringLiteral("Disable outputs")},
        &Settings::openAutoRun, &Settings::setOpenAutoRun);
    addChoice<TextForm>(QStringLiteral("Copy data to clipboard text/plain as:"),
        QStringLiteral("Choose whether to copy values from data tables to the clipboard as Comma Separated Values "
                       "(quoted where required), Tab Separated Values or undelimited plain text."),
        {QStringLiteral("Comma Separated Values"), QStringLiteral("Tab Separated Values"),
            QStringLiteral("Plain text")},
        &Settings::copyDataAs, &Settings::setCopyDataAs);
}

void GeneralPage::addRunning()
{
    addChoice<RunOptimum>(QStringLiteral("Optimize processing for:"),
        QStringLiteral("Maximum speed keeps the tables of all items while running."),
        {QStringLiteral("Maximum speed"), QStringLiteral("Minimum memory use (recommended)")}, &Settings::optimizeFor,
        &Settings::setOptimizeFor, {static_cast<int>(RunOptimum::Speed), static_cast<int>(RunOptimum::Memory)});
    addReal(QStringLiteral("Maximum memory usage:"),
        QStringLiteral("The maximum amount of virtual memory the program is allowed to use. It will exit if it "
                       "exceeds this."),
        leastGiB, mostGiB, QStringLiteral(" GB"), &Settings::maxMemoryUsage, &Settings::setMaxMemoryUsage);
    m_place = new QComboBox;
    m_place->addItems({QStringLiteral("system store"), QStringLiteral("portable .ini file")});
    m_place->setCurrentIndex(Settings::current().isIni() ? PortableFile : SystemStore);
    m_place->setToolTip(
        QStringLiteral("Where preferences are kept: with your other programs' on this system, or in the file '%1'.")
            .arg(m_store.file));
    addRow(QStringLiteral("Store these preferences in:"), m_place);
    connect(m_place, QOverload<int>::of(&QComboBox::activated), this, &GeneralPage::onPrefsLocationChanged);
}

void GeneralPage::addLocale()
{
    auto *button = new QPushButton(nameOf(Settings::current().locale()));
    button->setAutoDefault(false);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setToolTip(QStringLiteral("The locale of new documents. Locale affects how dates, numbers etc are "
                                      "interpreted."));
    button->setProperty("locale", Settings::current().locale());
    addRow(QStringLiteral("Default locale:"), button);
    connect(button, &QPushButton::clicked, this, [this, button] {
        LocaleDialog dialog(button->property("locale").toLocale(), this);
        if (m_prompts.exec(dialog) == QDialog::Accepted) {
            button->setProperty("locale", dialog.chosenLocale());
            button->setText(nameOf(dialog.chosenLocale()));
            emit localeChosen(dialog.chosenLocale());
        }
    });
    remember([button] { return button->property("locale"); },
        [](const QVariant &value) { Settings::current().setLocale(value.toLocale()); });
}

bool GeneralPage::wantsFile() const
{
    return m_place->currentIndex() == PortableFile;
}

void GeneralPage::onPrefsLocationChanged()
{
    // A choice that can't be had should be known before anything else is set.
    const QFileInfo file(m_store.file);
    const bool isWritable = file.exists() ? file.isWritable() : QFileInfo(file.path()).isWritable();
    if (wantsFile() && !isWritable) {
        refuseMove();
    }
}

void GeneralPage::tellUnwritable(const QString &file)
{
    m_prompts.critical(QStringLiteral("Cannot write to '%1'.\nEnsure the file and folder have write permission or "
                                      "move the executable to a folder with write permission.")
                           .arg(QDir::toNativeSeparators(file)));
}

void GeneralPage::refuseMove()
{
    m_place->setCurrentIndex(Settings::current().isIni() ? PortableFile : SystemStore);
    tellUnwritable(m_store.file);
}

bool GeneralPage::moveStore()
{
    if (wantsFile() == Settings::current().isIni()) {
        return true;
    }
    const bool moved = wantsFile() ? m_store.moveToFile() : m_store.moveToSystem();
    if (!moved) {
        refuseMove();
    }
    return moved;
}
