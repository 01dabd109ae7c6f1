#pragma once

#include <QString>
#include <memory>

class GraphScene;
class Node;
struct DocumentState;

/// A scope that makes one step of undo: what changes in it is taken back together. Steps of one document nest; only the
/// outermost counts. Without a window (GraphHooks) it does nothing.
class UndoStep
{
public:
    /// `scene` is one of the document that is about to change, and may be gone when the step ends. `hint` names the
    /// step in the menu, such as "add note".
    UndoStep(const GraphScene &scene, const QString &hint);
    /// A change of one item; nothing where that is in no scene. Steps of `Typing` that follow each other quickly under
    /// one hint become one.
    enum Kind { Single, Typing };
    UndoStep(const Node &node, const QString &hint, Kind kind = Single);
    ~UndoStep();
    UndoStep(const UndoStep &) = delete;
    UndoStep &operator=(const UndoStep &) = delete;

private:
    UndoStep(std::shared_ptr<DocumentState> document, const QString &hint, Kind kind);

    const std::shared_ptr<DocumentState> m_document;
    const bool m_isOutermost;
};
