#include "app/updates/updatecheck.h"

#include "app/programinfo.h"
#include "app/updates/checkupdatesdlg.h"
#include "graph/runcontrol.h"
#include "panes/dialogs/prompts.h"
#include "settings/product.h"
#include "settings/settings.h"
#include "settings/version.h"
#include "settings/webpages.h"

#include <QApplication>
#include <QDesktopServices>
#include <QSysInfo>
#include <QTimer>
#include <QUrlQuery>

namespace {

constexpr int firstCheckedSession = 2;
constexpr int retryMs = 5000;

bool isBusy()
{
    return RunControl::currentRun() != 0 || QApplication::activeModalWidget() || QApplication::activePopupWidget();
}

} // namespace

UpdateCheck::UpdateCheck(Prompts &prompts, const QString &site)
    : m_prompts(prompts)
    , m_site(site)
{
    connect(&m_loader, &HttpLoader::finished, this, &UpdateCheck::onLoaded);
}

UpdateCheck::~UpdateCheck() = default;

void UpdateCheck::onAutoCheckForUpdates()
{
    const Settings &settings = Settings::current();
    if (m_site.isEmpty() || settings.sessions() < firstCheckedSession
        || settings.autoUpdateInterval() == UpdateInterval::Never) {
        return;
    }
    const QDate last = settings.lastUpdatedCheck();
    // A date to come was stored by a clock that was wrong.
    if (last.isValid() && last <= QDate::currentDate()
        && last.daysTo(QDate::currentDate()) < settings.updateIntervalDays()) {
        return;
    }
    QTimer::singleShot(0, this, [this] { checkForUpdates(true); });
}

void UpdateCheck::checkForUpdates(bool automatic)
{
    const bool isAsked = m_dialog && m_dialog->isVisible();
    if (m_site.isEmpty() || (automatic && isAsked)) {
        return;
    }
    m_isAutomatic = automatic;
    Settings &settings = Settings::current();
    settings.setLastUpdatedCheck(QDate::currentDate());
    settings.sync();
    if (automatic) {
        emit statusMessage(
            QStringLiteral("Automatically checking for %1 software updates").arg(QLatin1String(Product::name)));
    } else {
        m_dialog = std::make_unique<CheckUpdatesDlg>(m_prompts.window());
        connect(m_dialog.get(), &QDialog::rejected, &m_loader, &HttpLoader::abort);
        m_dialog->show();
    }
    m_loader.get(requestAddress(automatic));
}

QUrl UpdateCheck::requestAddress(bool automatic) const
{
    const Settings &settings = Settings::current();
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("v"), QString::fromLatin1(Version::text));
    query.addQueryItem(
        QStringLiteral("p"), QString::fromLatin1(QUrl::toPercentEncoding(QSysInfo::prettyProductName())));
    query.addQueryItem(QStringLiteral("s"), QString::number(settings.sessions()));
    query.addQueryItem(QStringLiteral("f"), automatic ? QString::number(settings.updateIntervalDays()) : QString());
    QUrl address(m_site + QStringLiteral("/updates.php"));
    address.setQuery(query);
    return address;
}

void UpdateCheck::onLoaded()
{
    m_dialog.reset();
    showResult();
}

void UpdateCheck::showResult()
{
    // Nobody asked for it, so it doesn't come in between.
    if (m_isAutomatic && isBusy()) {
        QTimer::singleShot(retryMs, this, [this] {
            if (m_isAutomatic) { // and no one that was asked for has begun meanwhile
                showResult();
            }
        });
        return;
    }
    if (!m_loader.hasFailed()) {
        show(UpdateReply::parse(m_loader.received()));
    } else if (!m_isAutomatic) {
        m_prompts.warning(
            QStringLiteral("Unable to retrieve updates information. Please ensure you have a working Internet "
                           "connection and your firewall is not blocking %1. You can check for updates manually "
                           "at:\n%2")
                .arg(QLatin1String(Product::name), m_site + WebPages::path(WebPages::Page::Download)));
    }
    emit ended();
}

void UpdateCheck::show(const UpdateReply &reply)
{
    if (!reply.details.isEmpty()) {
        emit logMessage(reply.details);
    }
    const QVector<int> own{Version::major, Version::minor, Version::patch};
    if (!reply.version.isEmpty() && own < reply.version) {
        offer(reply);
        return;
    }
    if (m_isAutomatic) {
        return;
    }
    if (reply.version.isEmpty()) {
        m_prompts.warning(reply.message);
    } else if (own == reply.version) {
        m_prompts.information(QStringLiteral("You are using %1. This is the latest production version.")
                                  .arg(ProgramInfo::nameAndVersion()));
    } else {
        m_prompts.information(QStringLiteral("You are using %1. The latest production version is v%2.")
                                  .arg(ProgramInfo::nameAndVersion(), reply.versionText()));
    }
}

void UpdateCheck::offer(const UpdateReply &reply)
{
    const QString text = QStringLiteral("New version available!\nYou are using %1.").arg(ProgramInfo::nameAndVersion())
                         + QStringLiteral("\nThe latest production version is v%1.").arg(reply.versionText())
                         + QStringLiteral("\nClick \"OK\" to go to the download page and find out more.");
    if (!m_prompts.confirm(text)) {
        return;
    }
    const QUrl page = reply.url.isValid() ? reply.url : QUrl(m_site + WebPages::path(WebPages::Page::Download));
    if (!QDesktopServices::openUrl(page)) {
        m_prompts.warning(QStringLiteral("Unable to access via web browser\n'%1'").arg(page.toString()));
    }
}
