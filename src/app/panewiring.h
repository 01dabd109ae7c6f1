#pragma once

class MainWindow;
struct CommandContext;
struct CommandGroups;
struct MainActions;

/// Lets the left pane add items and light up those on the canvas.
void connectActionPane(const CommandContext &context, CommandGroups &groups);
/// Gives the canvas the actions of its menu, and connects what it asks for to the commands and to the right pane.
void connectCanvas(const CommandContext &context, const MainActions &actions, CommandGroups &groups);
/// Connects the buttons of the status bar, and shows on the window's icon how far a run is.
void connectStatusBar(const CommandContext &context, CommandGroups &groups);
/// Lets edits in the right pane mark the document as changed.
void connectItemPane(const CommandContext &context, MainWindow &window);
