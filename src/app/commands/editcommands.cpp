#include "app/commands/editcommands.h"

#include "app/application.h"
#include "app/documentcommands.h"
#include "app/documentsession.h"
#include "graph/connection.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/runcontrol.h"
#include "graph/tidyup.h"
#include "graph/undostep.h"
#include "panes/dialogs/localedialog.h"
#include "panes/dialogs/prompts.h"
#include "panes/items/itempane.h"
#include "panes/preferences/generalpage.h"
#include "panes/preferences/preferencesdialog.h"
#include "panes/status/statusbar.h"
#include "settings/product.h"

#include <QDir>

void EditCommands::deleteSelected()
{
    if (!m_context.session.scene().isProcessing()) {
        const UndoStep step(m_context.session.scene(), QStringLiteral("delete"));
        m_context.itemPane.letGo();
        m_context.session.scene().deleteSelected();
    }
}

void EditCommands::selectAll()
{
    GraphScene &scene = m_context.session.scene();
    for (Node *node : scene.nodes()) {
        node->setSelected(true);
    }
    // Connections too, so that copying takes them along.
    for (Connection *connection : scene.connections()) {
        connection->setSelected(true);
    }
}

void EditCommands::tidyUp()
{
    GraphScene &scene = m_context.session.scene();
    if (scene.isProcessing()) {
        return;
    }
    const QList<Node *> selected = scene.nodes(true);
    const UndoStep step(scene, QStringLiteral("tidy up"));
    if (TidyUp::arrange(scene, selected.size() > 1 ? selected : scene.nodes())) {
        m_context.session.setModified(true);
        m_context.statusBar.onShowMessage(QStringLiteral("tidied up"));
    } else {
        m_context.statusBar.onShowMessage(
            QStringLiteral("These items can't be arranged without changing the order of somebody's inputs: "
                           "select more items, or none"));
    }
}

void EditCommands::setSnapToGrid(bool on)
{
    GraphScene &scene = m_context.session.scene();
    scene.setSnapToGrid(on);
    if (on) {
        scene.snapAllNodes();
    }
    m_context.session.setModified(true);
    m_context.statusBar.onShowMessage(on ? QStringLiteral("snap on") : QStringLiteral("snap off"));
}

void EditCommands::editPreferences()
{
    Application &application = m_context.application;
    const PreferencesStore store{[&application] { return application.reopenSettingsAsIni(); },
        [&application] { return application.reopenSettingsAsSystem(); },
        QDir::toNativeSeparators(application.applicationDir().filePath(QString::fromLatin1(Product::iniFileName)))};
    PreferencesDialog dialog(store, m_context.prompts, &m_context.window);
    m_context.prompts.exec(dialog);
}

void EditCommands::editLocale()
{
    DocumentSession &session = m_context.session;
    if (session.scene().isProcessing()) {
        return;
    }
    LocaleDialog dialog(QLocale(), &m_context.window);
    if (m_context.prompts.exec(dialog) != QDialog::Accepted || dialog.chosenLocale() == QLocale()) {
        return;
    }
    m_documents.setDocumentLocale(dialog.chosenLocale(), false);
    session.setModified(true);
    for (Node *node : session.scene().nodes()) {
        node->setState(NodeState::NeedsProcessing, false);
    }
    stopRequested = false;
    session.scene().runChangesIfAuto();
    stopRequested = false;
}
