#pragma once

#include "app/commands/commandcontext.h"
#include "app/help/helpdesk.h"
#include "app/updates/updatecheck.h"
#include "settings/webpages.h"

/// Commands of the Help menu and of the buttons for help in the status bar.
class HelpCommands
{
public:
    explicit HelpCommands(const CommandContext &context);

    void about();
    /// The page about what has the focus.
    void showHelp();
    /// A page of the help by its name.
    void showPage(const QString &page);
    /// The window with the help.
    HelpDesk &desk() { return m_desk; }
    /// Shows a page in the browser; `command` is the text of what was chosen, for when that fails.
    void openPage(WebPages::Page page, const char *command);
    void checkForUpdates() { m_updates.checkForUpdates(false); }
    UpdateCheck &updates() { return m_updates; }
    void onFeedbackClicked();
    void onIntroVideoClicked();

private:
    const CommandContext m_context;
    HelpDesk m_desk;
    UpdateCheck m_updates;
};
