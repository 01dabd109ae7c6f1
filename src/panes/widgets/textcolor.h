#pragma once

#include <QColor>

/// Black or white, whichever can be read on a ground that a person has chosen, whatever the theme is.
inline QColor textColorOn(const QColor &ground)
{
    constexpr int middleGray = 128;
    return qGray(ground.rgb()) < middleGray ? Qt::white : Qt::black;
}
