#include "panes/status/statusbar.h"

#include "data/values.h"
#include "graph/runcontrol.h"
#include "panes/status/nodestatuswidget.h"
#include "settings/product.h"
#include "settings/settingkey.h"
#include "settings/settings.h"
#include "settings/settingsnotifier.h"
#include "settings/webpages.h"

#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int widestProgress = 300;
constexpr int progressHidesMs = 500;
constexpr int labelsReturnMs = 600;
constexpr double warningRatio = 0.75;
constexpr int heartSide = 24;

} // namespace

StatusBar::StatusBar(QWidget *parent)
    : QStatusBar(parent)
    , m_heart(new QLabel)
    , m_locale(new QLabel)
    , m_statistics(new QLabel)
    , m_progress(new QProgressBar)
    , m_itemStatus(new NodeStatusWidget)
    , m_memory(new QLabel)
{
    m_locale->setToolTip(QStringLiteral("The current locale. You can change locale in 'Preferences'."));
    m_memory->setObjectName(QStringLiteral("memory"));
    m_progress->setMaximumWidth(widestProgress);
    m_progress->setAccessibleName(QStringLiteral("Progress"));
    m_heart->setObjectName(QStringLiteral("heart"));
    m_heart->setFixedWidth(heartSide);
    for (const int step : {0, 1, 2, 1}) {
        m_beats.append(QIcon(QStringLiteral(":/images/heart_24px_%1.png").arg(step)));
    }
    addPermanentWidget(m_heart);
    addPermanentWidget(m_locale);
    addPermanentWidget(m_statistics);
    addPermanentWidget(m_progress);
    addPermanentWidget(m_itemStatus);
    addPermanentWidget(m_memory);
    m_feedback = addButton(QStringLiteral("Email us questions/feedback"),
        QStringLiteral("Email questions or feedback on %1 to %2.")
            .arg(QLatin1String(Product::name), QLatin1String(Product::supportAddress)));
    connect(m_feedback, &QToolButton::clicked, this, &StatusBar::feedbackClicked);
    m_introVideo = addButton(QStringLiteral("Watch intro video"),
        QStringLiteral("Click to watch a short introduction video (recommended)."));
    connect(m_introVideo, &QToolButton::clicked, this, &StatusBar::introVideoClicked);
    hideUsedButtons();
    m_heart->hide();
    m_progress->hide();
    m_statistics->hide();
    // Many figures are cut at the end rather than make the window wider.
    m_statistics->setMinimumWidth(1);
    m_statistics->setToolTip(QStringLiteral("Simple statistics on up to %1 selected cells in the data table.")
                                 .arg(formatInteger(mostCellsInStatistics, true)));
    onUpdateLocale();
    onUpdateMemory();
    connect(&Settings::current().notifier(), &SettingsNotifier::changed, this, [this](const QString &key) {
        if (key == SettingKey::maxMemoryUsage) {
            onUpdateMemory();
        }
    });
}

QToolButton *StatusBar::addButton(const QString &text, const QString &tip)
{
    auto *button = new QToolButton;
    button->setText(text);
    button->setToolTip(tip);
    button->setAutoRaise(true);
    addPermanentWidget(button);
    return button;
}

void StatusBar::hideUsedButtons()
{
    m_feedback->setVisible(!Settings::current().howDoIClicked());
    m_introVideo->setVisible(WebPages::exist() && !Settings::current().introVideoClicked());
}

void StatusBar::onShowMessage(const QString &text)
{
    showMessage(text, messageMs);
}

void StatusBar::showSelection(int items, int connections)
{
    if (items + connections == 0) {
        return;
    }
    const QString itemText = QStringLiteral("%1 %2").arg(
        formatInteger(items, true), items == 1 ? QStringLiteral("item") : QStringLiteral("items"));
    const QString connectionText = QStringLiteral("%1 %2").arg(formatInteger(connections, true),
        connections == 1 ? QStringLiteral("conection") : QStringLiteral("connections"));
    onShowMessage(QStringLiteral("%1 selected").arg(itemText + QStringLiteral(", ") + connectionText));
}

void StatusBar::showStatistics(const QString &text)
{
    m_statistics->setText(text);
    m_statistics->setVisible(!text.isEmpty());
}

void StatusBar::onHeartBeat()
{
    m_beat = (m_beat + 1) % m_beats.size();
    m_heart->setPixmap(m_beats.at(m_beat).pixmap(window()->windowHandle(), QSize(heartSide, heartSide)));
}

void StatusBar::onShowProgress(int percent)
{
    m_progress->setValue(percent);
    emit progressShown(percent);
    if (percent < 100) {
        m_progress->show();
        m_heart->show();
        m_locale->hide();
        m_memory->hide();
        return;
    }
    m_heart->hide();
    QTimer::singleShot(progressHidesMs, this, [this] { endProgress(); });
}

void StatusBar::endProgress()
{
    if (m_progress->value() < 100) {
        return; // another run has begun
    }
    m_progress->hide();
    QTimer::singleShot(labelsReturnMs - progressHidesMs, this, [this] {
        m_locale->setVisible(!m_progress->isVisible());
        m_memory->setVisible(!m_progress->isVisible());
        onUpdateMemory();
    });
}

void StatusBar::onUpdateLocale()
{
    const QLocale locale;
    m_locale->setText(QStringLiteral("%1/%2").arg(
        QLocale::languageToString(locale.language()), QLocale::countryToString(locale.country())));
}

void StatusBar::onUpdateMemory()
{
    const double used = RunControl::memoryUsedGiB();
    const double limit = Settings::current().maxMemoryUsage();
    const QString usedText = QString::number(used, 'f', 1);
    const QString limitText = QString::number(limit, 'f', 1);
    m_memory->setText(QStringLiteral(" Memory usage: %1 of %2GB").arg(usedText, limitText));
    m_memory->setToolTip(
        QStringLiteral("%1 memory used of %2GB maximum. You can increase maximum memory in 'Preferences'.")
            .arg(usedText, limitText));
    m_memory->setStyleSheet(used >= warningRatio * limit
                                ? QStringLiteral("QLabel{ color: %1; }").arg(QStringLiteral("#fc3300"))
                                : QString());
}
