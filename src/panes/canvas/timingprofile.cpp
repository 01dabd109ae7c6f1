#include "panes/canvas/timingprofile.h"

#include "graph/graphscene.h"
#include "graph/node.h"
#include "graph/nodelook.h"

void showTimingProfile(GraphScene &scene, bool on)
{
    const QList<Node *> nodes = scene.nodes();
    qint64 longest = 1;
    for (const Node *node : nodes) {
        longest = qMax(longest, node->processingMs());
    }
    for (Node *node : nodes) {
        if (on && node->type() != ItemType::Note) {
            node->look().showTimingBar(static_cast<double>(node->processingMs()) / longest);
        } else {
            node->look().hideTimingBar();
        }
    }
}
