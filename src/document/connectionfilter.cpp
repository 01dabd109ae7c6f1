#include "document/connectionfilter.h"

#include <QHash>
#include <QMap>
#include <QSet>

namespace {

/// Depth-first search that marks the connections leading back to a node on the present path.
class CycleSearch
{
public:
    explicit CycleSearch(const QVector<ConnectionRecord> &connections)
        : m_connections(connections)
        , m_closesCycle(connections.size(), false)
    {
        for (int i = 0; i < connections.size(); ++i) {
            m_outgoing[connections.at(i).startId].append(i);
            m_hasIncoming.insert(connections.at(i).endId);
        }
    }

    const QVector<bool> &run()
    {
        const QList<int> starts = m_outgoing.keys();
        for (int id : starts) {
            if (!m_hasIncoming.contains(id)) {
                visit(id);
            }
        }
        for (int id : starts) {
            visit(id);
        }
        return m_closesCycle;
    }

private:
    enum State { Unseen = 0, OnPath, Done };
    struct Step
    {
        int id;
        int next; ///< position in the node's outgoing connections
    };

    void visit(int start)
    {
        if (m_state.value(start) != Unseen) {
            return;
        }
        QVector<Step> path{{start, 0}};
        m_state[start] = OnPath;
        while (!path.isEmpty()) {
            Step &step = path.last();
            const QVector<int> outgoing = m_outgoing.value(step.id);
            if (step.next == outgoing.size()) {
                m_state[step.id] = Done;
                path.removeLast();
                continue;
            }
            const int connection = outgoing.at(step.next++);
            const int end = m_connections.at(connection).endId;
            const int state = m_state.value(end);
            if (state == OnPath) {
                m_closesCycle[connection] = true;
            } else if (state == Unseen) {
                m_state[end] = OnPath;
                path.append({end, 0});
            }
        }
    }

    const QVector<ConnectionRecord> &m_connections;
    QVector<bool> m_closesCycle;
    QMap<int, QVector<int>> m_outgoing;
    QSet<int> m_hasIncoming;
    QHash<int, int> m_state;
};

} // namespace

QVector<ConnectionRecord> withoutRepeatsAndCycles(const QVector<ConnectionRecord> &connections)
{
    QVector<ConnectionRecord> distinct;
    QSet<QPair<int, int>> seen;
    for (const ConnectionRecord &connection : connections) {
        const QPair<int, int> ends(connection.startId, connection.endId);
        if (!seen.contains(ends)) {
            seen.insert(ends);
            distinct.append(connection);
        }
    }
    CycleSearch search(distinct);
    const QVector<bool> &closesCycle = search.run();
    QVector<ConnectionRecord> kept;
    for (int i = 0; i < distinct.size(); ++i) {
        if (!closesCycle.at(i)) {
            kept.append(distinct.at(i));
        }
    }
    return kept;
}
