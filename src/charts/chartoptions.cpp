#include "charts/chartoptions.h"

#include <QLocale>

QString ChartChoice::typeLabel(int type)
{
    static const QStringList labels{QStringLiteral("<None selected>"), QStringLiteral("Scatter"),
        QStringLiteral("Line"), QStringLiteral("Smooth Line"), QStringLiteral("Area"), QStringLiteral("Vertical Bar"),
        QStringLiteral("Horizontal Bar"), QStringLiteral("Pie"), QStringLiteral("Donut")};
    return labels.value(type);
}

QString ChartChoice::xAsLabel(int choice)
{
    static const QStringList labels{
        QStringLiteral("Automatic"), QStringLiteral("Numeric"), QStringLiteral("Text"), QStringLiteral("Date")};
    return labels.value(choice);
}

QString ChartChoice::layoutLabel(int layout)
{
    static const QStringList labels{QStringLiteral("Grouped"), QStringLiteral("Faceted"), QStringLiteral("Stacked")};
    return labels.value(layout);
}

QString ChartChoice::imageTypeLabel(int type)
{
    static const QStringList labels{QStringLiteral("PNG"), QStringLiteral("JPEG"), QStringLiteral("PDF")};
    return labels.value(type);
}

int ChartChoice::defaultPdfSize()
{
    constexpr int a4 = 4;
    constexpr int letter = 9;
    return QLocale().country() == QLocale::UnitedStates ? letter : a4;
}
