#pragma once

#include <QtGlobal>
#include <unistd.h>

/// While it lives an administrator's process acts as a user whom the permissions of files bind. Does nothing for
/// others, whom they bind anyway.
class ScopedUser
{
public:
    ScopedUser()
        : m_wasAdministrator(::geteuid() == 0)
    {
        m_isBound = !m_wasAdministrator || (::setresgid(nobody, nobody, 0) == 0 && ::setresuid(nobody, nobody, 0) == 0);
    }
    ~ScopedUser()
    {
        if (m_wasAdministrator && (::setresuid(0, 0, 0) != 0 || ::setresgid(0, 0, 0) != 0)) {
            qFatal("the user can't be changed back");
        }
    }
    Q_DISABLE_COPY(ScopedUser)

    bool isBound() const { return m_isBound; }

private:
    static constexpr unsigned nobody = 65534;

    const bool m_wasAdministrator;
    bool m_isBound;
};
