#pragma once

#include <QPointF>
#include <memory>

class GraphScene;

/// Copies of a scene and of parts of it.
namespace GraphCopy {

/// One more scene of the same document with copies of all items, without data. Ids are kept.
std::unique_ptr<GraphScene> sceneCopy(const GraphScene &scene);

/// A scene of a document of its own with copies of all items, for runs that nobody looks at. Ids are kept.
std::unique_ptr<GraphScene> sceneForRun(const GraphScene &scene);

/// True when both have the same items with the same options at the same places, connected alike. What a run made
/// doesn't count.
bool areSame(const GraphScene &a, const GraphScene &b);

/// Adds copies of all items of `source` with new ids and selects them: with the top left corner of the group at
/// `position`, or beside what is there already if that is null.
void paste(GraphScene &scene, const GraphScene &source, const QPointF *position);

/// Copies the selected items and everything downstream of them, each reading what its original reads, and runs them if
/// the document runs by itself. One step of undo.
void duplicateBranch(GraphScene &scene);

} // namespace GraphCopy
