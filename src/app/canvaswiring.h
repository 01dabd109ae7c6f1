#pragma once

struct CommandContext;
struct CommandGroups;
struct MainActions;

/// Gives the canvas the actions of its menu, and connects what it asks for to the commands and to the right pane.
void connectCanvas(const CommandContext &context, const MainActions &actions, CommandGroups &groups);
