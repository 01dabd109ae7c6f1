#pragma once

#include <QString>

namespace ChartText {

/// `text` as QtCharts, which takes markup everywhere, shows it word for word.
inline QString plain(const QString &text)
{
    return text.toHtmlEscaped();
}

} // namespace ChartText
