#include "panes/explore/explorehelp.h"

#include "panes/dialogs/helphook.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

void ExploreHelp::add(QDialog &dialog, QDialogButtonBox &buttons, const QString &page)
{
    HelpHook::setHelpPage(dialog, page);
    buttons.addButton(QDialogButtonBox::Help)->setAutoDefault(false);
    QObject::connect(
        &buttons, &QDialogButtonBox::helpRequested, &dialog, [&dialog, page] { HelpHook::showHelp(&dialog, page); });
}
