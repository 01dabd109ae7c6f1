#include "platform/username.h"
#include "support/printers.h"

#include <QByteArray>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace {

/// Sets a variable of the process, or takes it away when `value` is null, and puts it back in the end.
class ScopedVariable
{
public:
    ScopedVariable(const char *name, const char *value)
        : m_name(name)
        , m_wasSet(qEnvironmentVariableIsSet(name))
        , m_before(qgetenv(name))
    {
        value ? qputenv(name, value) : qunsetenv(name);
    }
    ~ScopedVariable() { m_wasSet ? qputenv(m_name, m_before) : qunsetenv(m_name); }
    Q_DISABLE_COPY(ScopedVariable)

private:
    const char *const m_name;
    const bool m_wasSet;
    const QByteArray m_before;
};

} // namespace

TEST(UserName, IsFoundWithoutVariablesToo)
{
    const passwd *entry = ::getpwuid(::geteuid());
    const QString listed = entry ? QString::fromLocal8Bit(entry->pw_name) : QString();
    const struct
    {
        const char *what;
        const char *user;
        const char *logName;
        QString name;
    } cases[] = {
        {"USER goes first", "ann", "bob", "ann"},
        {"LOGNAME where USER isn't set", nullptr, "bob", "bob"},
        {"or is empty", "", "bob", "bob"},
        {"the system's list where none is set, as in services", nullptr, nullptr, listed},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const ScopedVariable user("USER", c.user);
        const ScopedVariable logName("LOGNAME", c.logName);
        EXPECT_EQ(platform::userName(), c.name);
    }
}
