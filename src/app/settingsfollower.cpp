#include "app/settingsfollower.h"

#include "app/application.h"
#include "app/documentsession.h"
#include "app/mainactions.h"
#include "data/dataset.h"
#include "graph/colors.h"
#include "graph/graphscene.h"
#include "settings/settingkey.h"
#include "settings/settings.h"
#include "settings/settingsnotifier.h"

SettingsFollower::SettingsFollower(Application &application, DocumentSession &session, MainActions &actions)
    : m_application(application)
    , m_session(session)
    , m_actions(actions)
{
    connect(&application.settings().notifier(), &SettingsNotifier::changed, this, &SettingsFollower::onChanged);
}

void SettingsFollower::onChanged(const QString &key)
{
    struct Row
    {
        QLatin1String key;
        void (SettingsFollower::*update)();
    };
    static constexpr Row rows[] = {
        {SettingKey::colorScheme, &SettingsFollower::updateColors},
        {SettingKey::customConnectionThickness, &SettingsFollower::updateColors},
        {SettingKey::customGradientEffect, &SettingsFollower::updateColors},
        {SettingKey::uiFont, &SettingsFollower::updateFont},
        {SettingKey::toolbarIconSize, &SettingsFollower::updateToolBar},
        {SettingKey::optimizeFor, &SettingsFollower::updateOptimum},
    };
    for (const Row &row : rows) {
        if (key == row.key) {
            (this->*row.update)();
        }
    }
    if (key.startsWith(SettingKey::customColor)) {
        updateColors();
    }
}

void SettingsFollower::updateColors()
{
    m_application.colors().reload();
    GraphScene &scene = m_session.scene();
    scene.setBackgroundBrush(m_application.colors().color(Colors::Background));
    scene.refresh();
}

void SettingsFollower::updateFont()
{
    QApplication::setFont(m_application.settings().uiFont());
}

void SettingsFollower::updateToolBar()
{
    m_actions.updateIconSize();
}

void SettingsFollower::updateOptimum()
{
    Dataset::setMaximumSpeed(m_application.settings().optimizeFor() == RunOptimum::Speed);
}
