#pragma once

class GraphPane;
class StatusBar;
struct CommandGroups;
struct MainActions;

/// Gives the canvas the actions of its menu, and connects what it asks for to the commands.
void connectCanvas(GraphPane &pane, const MainActions &actions, CommandGroups &groups, StatusBar &statusBar);
