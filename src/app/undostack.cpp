#include "app/undostack.h"

#include "app/documentsession.h"
#include "graph/graphscene.h"

namespace {

/// Whoever stops typing for so long has finished a step.
constexpr qint64 typingPauseMs = 1500;

} // namespace

UndoStack::UndoStack(DocumentSession &session, QObject *parent)
    : QObject(parent)
    , m_session(session)
{
}

UndoStack::~UndoStack() = default;

void UndoStack::prepare(const QString &hint, bool isTyping)
{
    const bool goesOn = isTyping && m_index == -1 && !m_entries.empty() && m_entries.front().hint == hint
                        && m_lastTyped.isValid() && !m_lastTyped.hasExpired(typingPauseMs);
    isTyping ? m_lastTyped.start() : m_lastTyped.invalidate();
    if (goesOn) {
        return;
    }
    // What was taken back before is given up.
    m_entries.erase(m_entries.begin(), m_entries.begin() + (m_index + 1));
    m_index = -1;
    m_entries.insert(m_entries.begin(), Entry{m_session.scene().copy(), hint});
    if (m_entries.size() > mostSteps) {
        m_entries.resize(mostSteps);
    }
}

void UndoStack::finish()
{
    if (!m_entries.empty() && m_index == -1 && m_entries.front().scene->sameAs(m_session.scene())) {
        m_entries.erase(m_entries.begin());
    }
    emit changed();
}

int UndoStack::undoEntry() const
{
    const int entry = m_index + 1;
    return entry < static_cast<int>(m_entries.size()) ? entry : -1;
}

QString UndoStack::undoHint() const
{
    return canUndo() ? m_entries[static_cast<size_t>(undoEntry())].hint : QString();
}

QString UndoStack::redoHint() const
{
    return canRedo() ? m_entries[static_cast<size_t>(m_index)].hint : QString();
}

void UndoStack::undo()
{
    if (m_session.scene().isProcessing() || !canUndo()) {
        return;
    }
    int target = undoEntry();
    if (m_index == -1) {
        // A place for the present scene, for redo; it counts as none of the steps.
        m_entries.insert(m_entries.begin(), Entry{nullptr, QString()});
        m_index = 0;
        target = 1;
    }
    makeLive(target);
}

void UndoStack::redo()
{
    if (!m_session.scene().isProcessing() && canRedo()) {
        makeLive(m_index - 1);
    }
}

void UndoStack::makeLive(int index)
{
    Entry &present = m_entries[static_cast<size_t>(m_index)];
    present.scene = m_session.exchangeScene(std::move(m_entries[static_cast<size_t>(index)].scene));
    present.scene->goToRest();
    m_index = index;
    m_session.setModified(true);
    emit changed();
    emit restored();
}

void UndoStack::clear()
{
    m_entries.clear();
    m_index = -1;
    emit changed();
}
