#include "app/commands/inputcommands.h"

#include "app/application.h"
#include "app/documentsession.h"
#include "graph/graphscene.h"
#include "inputs/clipboardtext.h"
#include "panes/canvas/graphpane.h"
#include "panes/dialogs/prompts.h"
#include "settings/settings.h"

#include <QClipboard>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

void InputCommands::addFromFiles()
{
    Application &application = m_context.application;
    const QStringList paths = m_context.prompts.openFiles(
        {QStringLiteral("Input From File"), application.lastDataDir(), application.settings().inputFileFilter()});
    if (!paths.isEmpty()) {
        application.setLastDataDir(QFileInfo(paths.first()).absolutePath());
        m_context.session.scene().addInputsFromPaths(paths);
    }
}

void InputCommands::addFromFolder()
{
    Application &application = m_context.application;
    const QString folder = m_context.prompts.openFolder(
        {QStringLiteral("Input From Folder"), application.lastDataDir(), QString()});
    if (!folder.isEmpty()) {
        application.setLastDataDir(folder);
        m_context.session.scene().addInputsFromPaths({folder});
    }
}

void InputCommands::addFromClipboard(const QPointF &position)
{
    const QMimeData *mimeData = QGuiApplication::clipboard()->mimeData();
    const QList<QUrl> urls = mimeData ? mimeData->urls() : QList<QUrl>();
    // An address of the web is text like any other.
    if (std::any_of(urls.cbegin(), urls.cend(), [](const QUrl &url) { return url.isLocalFile(); })) {
        m_context.graphPane.onProcessDroppedPaths(urls, position);
        return;
    }
    const QString text = clipboardText(mimeData);
    if (text.isEmpty()) {
        m_context.prompts.information(QStringLiteral("Data type pasted not recognized."));
        return;
    }
    m_context.session.scene().addInputFromClipboard(text, position);
}
