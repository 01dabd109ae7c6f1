#pragma once

#include "settings/product.h"
#include "settings/settings.h"

#include <QTemporaryDir>

/// Empty settings of a test's own, current while this lives.
class ScopedSettings
{
public:
    ScopedSettings()
        : m_settings(m_folder.filePath(QString::fromLatin1(Product::iniFileName)))
    {
        Settings::setCurrent(&m_settings);
    }
    ~ScopedSettings() { Settings::setCurrent(nullptr); }
    Q_DISABLE_COPY(ScopedSettings)

    Settings *operator->() { return &m_settings; }

private:
    QTemporaryDir m_folder;
    Settings m_settings;
};
