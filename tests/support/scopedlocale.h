#pragma once

#include <QLocale>

/// Makes a locale the default while it lives; a name such as "de_DE".
class ScopedLocale
{
public:
    explicit ScopedLocale(const QString &name) { QLocale::setDefault(QLocale(name)); }
    ~ScopedLocale() { QLocale::setDefault(m_before); }
    Q_DISABLE_COPY(ScopedLocale)

private:
    const QLocale m_before;
};
