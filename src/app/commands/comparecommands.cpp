#include "app/commands/comparecommands.h"

#include "app/documentsession.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/explore/comparedatasetsdialog.h"
#include "panes/explore/compareheadersdialog.h"

#include <algorithm>

CompareCommands::CompareCommands(const CommandContext &context)
    : m_context(context)
{
    m_items.setScene(&context.session.scene());
    QObject::connect(&context.session, &DocumentSession::sceneChanged, &m_items,
        [this](GraphScene *, GraphScene *current) { m_items.setScene(current); });
    // Another document has other items under the same ids.
    QObject::connect(&context.session, &DocumentSession::aboutToClear, &m_items, [this] { closeWindows(); });
}

CompareCommands::~CompareCommands()
{
    closeWindows();
    for (const QPointer<QDialog> &window : qAsConst(m_windows)) {
        delete window;
    }
}

void CompareCommands::closeWindows()
{
    for (const QPointer<QDialog> &window : qAsConst(m_windows)) {
        if (window) {
            window->close();
        }
    }
}

QList<int> CompareCommands::selectedIds() const
{
    QList<Node *> items = ExploredItems::withTable(m_context.session.scene().nodes(true));
    std::sort(items.begin(), items.end(),
        [](const Node *a, const Node *b) { return a->x() != b->x() ? a->x() < b->x() : a->y() < b->y(); });
    QList<int> ids;
    for (const Node *item : qAsConst(items)) {
        ids.append(item->id());
    }
    return ids;
}

void CompareCommands::open(QDialog *window)
{
    window->setAttribute(Qt::WA_DeleteOnClose);
    m_windows.removeAll(QPointer<QDialog>());
    m_windows.append(window);
    window->show();
}

void CompareCommands::compareData()
{
    const QList<int> ids = selectedIds();
    if (ids.size() == 2) {
        open(new CompareDatasetsDialog(m_items, ids.first(), ids.last(), &m_context.window));
    }
}

void CompareCommands::compareHeaders()
{
    const QList<int> ids = selectedIds();
    if (ids.size() >= 2) {
        open(new CompareHeadersDialog(m_items, ids, &m_context.window));
    }
}
