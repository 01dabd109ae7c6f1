#include "app/commands/helpcommands.h"

#include "app/programinfo.h"
#include "panes/dialogs/prompts.h"

void HelpCommands::about()
{
    m_context.prompts.about(QStringLiteral(
        "<b>%1</b><p>Cleans, reshapes, merges, checks and converts tables.<p>%2<p>Free software under the GNU "
        "General Public License, version 3 or later.")
                                .arg(ProgramInfo::nameAndVersion(), ProgramInfo::build()));
}
