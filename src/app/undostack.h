#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <memory>
#include <vector>

class DocumentSession;
class GraphScene;

/// Undo and redo by whole scenes: before each change a copy of the live scene without its data is kept, and undo and
/// redo put another one in its place. Ten steps can be taken back.
class UndoStack : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostSteps = 10;

    explicit UndoStack(DocumentSession &session, QObject *parent = nullptr);
    ~UndoStack() override;

    /// Before a change, which `hint` names: such as "add note". Typing that goes on under the same hint is part of the
    /// step before.
    void prepare(const QString &hint, bool isTyping = false);
    /// After it: a change that changed nothing leaves no step.
    void finish();

    bool canUndo() const { return undoEntry() >= 0; }
    bool canRedo() const { return m_index > 0; }
    /// What undo would take back and redo bring again, empty for none.
    QString undoHint() const;
    QString redoHint() const;
    void undo();
    void redo();
    /// Another document is open.
    void clear();

signals:
    /// There are other steps now.
    void changed();
    /// Undo or redo put another scene in place; its items need processing.
    void restored();

private:
    /// `scene` is null while it is the live one.
    struct Entry
    {
        std::unique_ptr<GraphScene> scene;
        QString hint;
    };

    int undoEntry() const;
    void makeLive(int index);

    DocumentSession &m_session;
    std::vector<Entry> m_entries; ///< newest first
    QElapsedTimer m_lastTyped;    ///< since the last typing; invalid when something else came after it
    int m_index = -1;             ///< of the live scene, -1 while it isn't among the entries
};
