#include "panes/widgets/tips.h"

#include "settings/settings.h"

#include <QTextDocument>
#include <QToolTip>
#include <QWidget>

bool Tips::showOnce(
    const QString &key, const QString &title, const QString &text, int milliseconds, QWidget *anchor, Qt::Edge side)
{
    if (!anchor || !anchor->isVisible() || Settings::current().isTipShown(key)) {
        return false;
    }
    const QPoint place = side == Qt::RightEdge ? QPoint(anchor->width(), 0)
                                               : QPoint(anchor->width() / 2, anchor->height());
    const QString html = QStringLiteral("<b>%1</b><br>%2")
                             .arg(title.toHtmlEscaped(),
                                 text.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")));
    QToolTip::showText(anchor->mapToGlobal(place), html, anchor, QRect(), milliseconds);
    return true;
}

QString Tips::plain(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}
