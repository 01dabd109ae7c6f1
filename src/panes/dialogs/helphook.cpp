#include "panes/dialogs/helphook.h"

#include <QVariant>
#include <QWidget>

namespace {

constexpr char property[] = "helpPage";

HelpHook::Show &installed()
{
    static HelpHook::Show show;
    return show;
}

} // namespace

void HelpHook::install(const Show &show)
{
    installed() = show;
}

void HelpHook::showHelp(QWidget *from, const QString &page)
{
    if (installed()) {
        installed()(from, page);
    }
}

void HelpHook::setHelpPage(QWidget &widget, const QString &page)
{
    widget.setProperty(property, page);
}

QString HelpHook::helpPageOf(const QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        const QString page = widget->property(property).toString();
        if (!page.isEmpty()) {
            return page;
        }
    }
    return QString();
}
