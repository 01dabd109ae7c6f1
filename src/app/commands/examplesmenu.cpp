#include "app/commands/examplesmenu.h"

#include "app/documentcommands.h"
#include "app/examples.h"
#include "panes/dialogs/prompts.h"
#include "panes/status/logpane.h"
#include "platform/installedfiles.h"

#include <QDir>
#include <QMenu>
#include <QTimer>

ExamplesMenu::ExamplesMenu(QMenu &menu, const CommandContext &context, DocumentCommands &documents)
    : QObject(&menu)
    , m_context(context)
    , m_documents(documents)
{
    for (const Examples::Example &example : Examples::all()) {
        const QString document = example.document;
        QAction *action = menu.addAction(example.title, this, [this, document] {
            // The menu has to be gone before the document runs.
            QTimer::singleShot(0, this, [this, document] { open(document); });
        });
        action->setToolTip(QStringLiteral("Open a copy of %1.").arg(document));
        action->setStatusTip(action->toolTip());
    }
}

void ExamplesMenu::open(const QString &document)
{
    const QString folder = Examples::folder();
    const QString native = QDir::toNativeSeparators(folder);
    QString error;
    if (!Examples::copy(platform::installedFolder(QStringLiteral("examples")), folder, error)) {
        m_context.prompts.critical(QStringLiteral("The examples can't be copied to '%1'.\n%2").arg(native, error));
        return;
    }
    if (m_documents.openExample(QDir(folder).filePath(document))) {
        m_context.logPane.onShowLogMessage(
            QStringLiteral("The examples are copies in '%1': change them as you like. One that you delete comes back "
                           "when you open it from the menu.")
                .arg(native));
    }
}
