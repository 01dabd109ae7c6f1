#include "app/commands/helpcommands.h"

#include "app/application.h"
#include "app/programinfo.h"
#include "panes/dialogs/prompts.h"
#include "panes/status/logpane.h"
#include "panes/status/statusbar.h"
#include "settings/product.h"
#include "settings/settings.h"

#include <QApplication>
#include <QDesktopServices>

HelpCommands::HelpCommands(const CommandContext &context)
    : m_context(context)
    , m_desk(context)
    , m_updates(context.prompts, WebPages::siteAddress())
{
    QObject::connect(&m_updates, &UpdateCheck::statusMessage, &context.statusBar, &StatusBar::onShowMessage);
    QObject::connect(&m_updates, &UpdateCheck::logMessage, &context.logPane, &LogPane::onShowLogMessage);
}

void HelpCommands::about()
{
    m_context.prompts.about(QStringLiteral(
        "<b>%1</b><p>Cleans, reshapes, merges, checks and converts tables.<p>%2<p>Free software under the GNU "
        "General Public License, version 3 or later.")
                                .arg(ProgramInfo::nameAndVersion(), ProgramInfo::build()));
}

void HelpCommands::showHelp()
{
    m_desk.showContextPage(QApplication::focusWidget());
}

void HelpCommands::showPage(const QString &page)
{
    m_desk.showPage(page);
}

void HelpCommands::openPage(WebPages::Page page, const char *command)
{
    const QUrl address = WebPages::address(page);
    if (!QDesktopServices::openUrl(address)) {
        m_context.prompts.warning(QStringLiteral("%1\n\nUnable to access via web browser\n'%2'")
                                      .arg(QString::fromLatin1(command), address.toString()));
    }
}

void HelpCommands::onFeedbackClicked()
{
    m_context.application.settings().setHowDoIClicked(true);
    m_context.statusBar.hideUsedButtons();
    const QString to = QString::fromLatin1(Product::supportAddress);
    if (!QDesktopServices::openUrl(QUrl(QStringLiteral("mailto:%1?subject=Feedback").arg(to)))) {
        m_context.prompts.warning(
            QStringLiteral("%1 is unable to interface with your email. Please email your feedback to %2.")
                .arg(QLatin1String(Product::name), to));
    }
}

void HelpCommands::onIntroVideoClicked()
{
    m_context.application.settings().setIntroVideoClicked(true);
    m_context.statusBar.hideUsedButtons();
    openPage(WebPages::Page::IntroVideo, "Watch intro video");
}
