#include "panes/icons.h"

#include <QIcon>
#include <QString>

static bool isDark = false;

static void loadResources()
{
    // A static library's resources are linked only when somebody asks for them.
    Q_INIT_RESOURCE(quillmere);
}

void Icons::setDark(bool dark)
{
    isDark = dark;
}

bool Icons::areDark()
{
    return isDark;
}

QIcon Icons::icon(const QString &name)
{
    if (name.isEmpty()) {
        return {};
    }
    loadResources();
    return QIcon(
        QStringLiteral(":/icons/%1/%2.svg").arg(isDark ? QStringLiteral("dark") : QStringLiteral("light"), name));
}
