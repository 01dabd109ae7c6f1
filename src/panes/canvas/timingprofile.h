#pragma once

class GraphScene;

/// Shows on each item that has run how much of the longest time it took, or takes these bars away.
void showTimingProfile(GraphScene &scene, bool on);
