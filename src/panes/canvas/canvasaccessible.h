#pragma once

class GraphPane;

/// What screen readers and other tools see of the canvas: a list of its items with their state in words, joined to
/// what feeds them and what they feed, each of which can be selected, run and shown.
namespace CanvasAccessible {

/// Tells the toolkit of it; once a process.
void install();

/// Says that the selection or what there is has changed.
void notifySelection(GraphPane &pane);
void notifyItems(GraphPane &pane);

} // namespace CanvasAccessible
