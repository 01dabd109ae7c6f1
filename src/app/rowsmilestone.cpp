#include "app/rowsmilestone.h"

#include "settings/settings.h"

#include <QLocale>

namespace {

constexpr quint64 firstMark = 1000000;

int powerOfTenIn(quint64 number)
{
    int power = 0;
    for (; number >= 10; number /= 10) {
        ++power;
    }
    return power;
}

QString phrase(int power)
{
    switch (power) {
    case 6:
        return QStringLiteral("Take that, Excel!");
    case 7:
        return QStringLiteral("Maybe have a lie down?");
    case 8:
        return QStringLiteral("We're glad to see you're getting value for money.");
    case 9:
        return QStringLiteral("Welcome to the billion rows club.");
    case 10:
        return QStringLiteral("We think your boss should give you a raise!");
    case 11:
        return QStringLiteral("To infinity, and beyond!");
    case 12:
        return QStringLiteral("Nobody will believe you. Send us a screenshot!");
    default:
        return QStringLiteral("Awesome!!");
    }
}

} // namespace

int RowsMilestone::advance()
{
    Settings &settings = Settings::current();
    const quint64 rows = settings.totalRowsProcessed();
    const int power = powerOfTenIn(rows);
    if (rows < firstMark || power < settings.totalNextExpRowsToNotify()) {
        return 0;
    }
    settings.setTotalNextExpRowsToNotify(power + 1);
    return power;
}

QString RowsMilestone::message(int power)
{
    qulonglong mark = 1;
    for (int i = 0; i < power; ++i) {
        mark *= 10;
    }
    return QStringLiteral("You have now transformed more than %1 rows of data in Quillmere.\n%2")
        .arg(QLocale().toString(mark), phrase(power));
}
