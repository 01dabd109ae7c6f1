#include "panes/preferences/preferencesdialog.h"

#include "panes/dialogs/helphook.h"
#include "panes/preferences/colorspage.h"
#include "panes/preferences/datespage.h"
#include "panes/preferences/extensionspage.h"
#include "panes/preferences/generalpage.h"
#include "panes/preferences/interfacepage.h"
#include "panes/widgets/keptgeometry.h"
#include "settings/settings.h"

#include <QDialogButtonBox>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(680, 560);

/// Pages of rows may be higher than the screen, with large letters.
QWidget *scrolled(QWidget *page)
{
    auto *area = new QScrollArea;
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    // The ground of the tabs shows through, as on the pages that don't scroll.
    page->setAutoFillBackground(false);
    area->viewport()->setAutoFillBackground(false);
    return area;
}

} // namespace

PreferencesDialog::PreferencesDialog(const PreferencesStore &store, Prompts &prompts, QWidget *parent)
    : QDialog(parent)
    , m_tabs(new QTabWidget)
    , m_general(new GeneralPage(store, prompts))
    , m_interface(new InterfacePage)
    , m_dates(new DatesPage)
    , m_inputs(new ExtensionsPage(ExtensionsPage::Input))
    , m_outputs(new ExtensionsPage(ExtensionsPage::Output))
    , m_colors(new ColorsPage)
{
    setWindowTitle(QStringLiteral("Preferences"));
    m_tabs->addTab(scrolled(m_general), QStringLiteral("General"));
    m_tabs->addTab(scrolled(m_interface), QStringLiteral("User Interface"));
    m_tabs->addTab(m_dates, QStringLiteral("Dates"));
    m_tabs->addTab(m_inputs, QStringLiteral("Input Extensions"));
    m_tabs->addTab(m_outputs, QStringLiteral("Output Extensions"));
    m_tabs->addTab(scrolled(m_colors), QStringLiteral("Colors"));
    connect(m_general, &GeneralPage::localeChosen, m_dates, &DatesPage::setLocale);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help);
    connect(buttons, &QDialogButtonBox::accepted, this, &PreferencesDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const QString page = QStringLiteral("Preferences_window");
    HelpHook::setHelpPage(*this, page);
    connect(buttons, &QDialogButtonBox::helpRequested, this, [this, page] { HelpHook::showHelp(this, page); });
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(buttons);
    keepGeometry(*this, &Settings::prefsWindowGeometry, &Settings::setPrefsWindowGeometry, firstSize);
}

bool PreferencesDialog::showFault()
{
    for (ExtensionsPage *page : {m_inputs, m_outputs}) {
        if (page->hasFaults()) {
            m_tabs->setCurrentWidget(page);
            page->showFault();
            return true;
        }
    }
    return false;
}

void PreferencesDialog::accept()
{
    if (showFault()) {
        return;
    }
    // Where they go comes first: a failure leaves the dialog open and everything as it was.
    if (!m_general->moveStore()) {
        return;
    }
    m_general->store();
    m_interface->store();
    m_dates->store();
    m_inputs->store();
    m_outputs->store();
    m_colors->store();
    if (!Settings::current().sync()) {
        m_general->tellUnwritable(Settings::current().fileName());
    }
    QDialog::accept();
}
