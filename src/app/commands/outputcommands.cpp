#include "app/commands/outputcommands.h"

#include "app/application.h"
#include "app/documentsession.h"
#include "graph/graphscene.h"
#include "graph/ionode.h"
#include "inputnode/inputnode.h"
#include "panes/dialogs/filetypequestions.h"
#include "panes/dialogs/prompts.h"
#include "settings/filetypes.h"
#include "settings/settings.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// After the input that the table comes from.
QString proposedName(const GraphScene &scene)
{
    const QList<Node *> selected = scene.nodes(true);
    for (Node *node : selected.value(0) ? selected.first()->allUpstream(true) : QSet<Node *>()) {
        if (const auto *input = qobject_cast<const InputNode *>(node)) {
            return input->defaultOutputName();
        }
    }
    return QStringLiteral("Output.csv");
}

} // namespace

void OutputCommands::toFile()
{
    GraphScene &scene = m_context.session.scene();
    Application &application = m_context.application;
    if (scene.isProcessing() || scene.nodes(true).size() != 1) {
        return;
    }
    const QString path = m_context.prompts.saveFile({QStringLiteral("Output To File"),
        QDir(application.lastOutputDataDir()).filePath(QFileInfo(proposedName(scene)).fileName()),
        application.settings().outputFileFilter()});
    if (path.isEmpty()) {
        return;
    }
    application.setLastOutputDataDir(QFileInfo(path).absolutePath());
    scene.addOutput(path, FileTypeQuestions::fileTypeForExtension(m_context.prompts, path, FileType::Delimited));
}

void OutputCommands::toChart()
{
    m_context.session.scene().addChart();
}
