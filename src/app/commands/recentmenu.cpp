#include "app/commands/recentmenu.h"

#include "app/documentcommands.h"
#include "app/documentsession.h"
#include "app/recentdocuments.h"

#include <QMenu>
#include <QTimer>

RecentMenu::RecentMenu(QMenu &menu, RecentDocuments &recent, DocumentSession &session, DocumentCommands &documents)
    : m_menu(menu)
    , m_recent(recent)
    , m_session(session)
    , m_documents(documents)
{
}

void RecentMenu::update()
{
    m_menu.clear();
    const QStringList entries = m_recent.menuEntries(m_session.path());
    m_isEmpty = entries.isEmpty();
    for (const QString &path : entries) {
        QAction *action = m_menu.addAction(path, this, [this, path] {
            // The menu is built anew while the document opens.
            QTimer::singleShot(0, &m_documents, [this, path] { m_documents.onOpenPath(path); });
        });
        action->setStatusTip(QStringLiteral("Open this .transform document."));
    }
    m_menu.addSeparator();
    QAction *clear = m_menu.addAction(QStringLiteral("Clear"), this, [this] {
        m_recent.clearMenu();
        QTimer::singleShot(0, this, &RecentMenu::update);
    });
    clear->setStatusTip(QStringLiteral("Clear the recent .transform documents menu."));
    emit updated();
}
