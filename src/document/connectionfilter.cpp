#include "document/connectionfilter.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <algorithm>

namespace {

/// Depth-first search that marks the connections leading back to a node on the present path, and finds the strongly
/// connected components on the way (R. Tarjan, "Depth-first search and linear graph algorithms", 1972).
class CircleSearch
{
public:
    explicit CircleSearch(const QVector<ConnectionRecord> &connections)
        : m_connections(connections)
        , m_closesCircle(connections.size(), false)
    {
        for (int i = 0; i < connections.size(); ++i) {
            m_outgoing[connections.at(i).startId].append(i);
            m_hasIncoming.insert(connections.at(i).endId);
        }
    }

    void run()
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
        std::sort(m_idsInCircles.begin(), m_idsInCircles.end());
    }

    const QVector<bool> &closesCircle() const { return m_closesCircle; }
    const QVector<int> &idsInCircles() const { return m_idsInCircles; }

private:
    struct Visit
    {
        int order = 0;  ///< 1 for the first node that was reached
        int lowest = 0; ///< order of the earliest node of its component that is known to be reached from here
        bool isOnPath = false;
        bool isPending = false; ///< its component isn't complete
        bool leadsToItself = false;
    };
    struct Step
    {
        int id;
        int next; ///< position in the node's outgoing connections
    };

    void enter(int id)
    {
        Visit &visit = m_visits[id];
        visit.order = visit.lowest = ++m_reached;
        visit.isOnPath = visit.isPending = true;
        m_pending.append(id);
        m_path.append({id, 0});
    }

    void leave()
    {
        const int id = m_path.last().id;
        m_path.removeLast();
        Visit &visit = m_visits[id];
        visit.isOnPath = false;
        if (!m_path.isEmpty()) {
            Visit &before = m_visits[m_path.last().id];
            before.lowest = qMin(before.lowest, visit.lowest);
        }
        if (visit.lowest == visit.order) {
            completeComponent(id);
        }
    }

    void completeComponent(int root)
    {
        const bool isCircle = m_pending.last() != root || m_visits.value(root).leadsToItself;
        int id = 0;
        do {
            id = m_pending.takeLast();
            m_visits[id].isPending = false;
            if (isCircle) {
                m_idsInCircles.append(id);
            }
        } while (id != root);
    }

    void visit(int start)
    {
        if (m_visits.contains(start)) {
            return;
        }
        enter(start);
        while (!m_path.isEmpty()) {
            Step &step = m_path.last();
            const QVector<int> outgoing = m_outgoing.value(step.id);
            if (step.next == outgoing.size()) {
                leave();
            } else {
                follow(step.id, outgoing.at(step.next++));
            }
        }
    }

    void follow(int id, int connection)
    {
        const int end = m_connections.at(connection).endId;
        if (!m_visits.contains(end)) {
            enter(end);
            return;
        }
        const Visit reached = m_visits.value(end);
        Visit &visit = m_visits[id];
        m_closesCircle[connection] = reached.isOnPath;
        visit.leadsToItself = visit.leadsToItself || end == id;
        if (reached.isPending) {
            visit.lowest = qMin(visit.lowest, reached.order);
        }
    }

    const QVector<ConnectionRecord> &m_connections;
    QVector<bool> m_closesCircle;
    QVector<int> m_idsInCircles;
    QMap<int, QVector<int>> m_outgoing;
    QSet<int> m_hasIncoming;
    QHash<int, Visit> m_visits;
    QVector<Step> m_path;
    QVector<int> m_pending;
    int m_reached = 0;
};

} // namespace

FilteredConnections filterConnections(const QVector<ConnectionRecord> &connections)
{
    FilteredConnections result;
    QVector<ConnectionRecord> distinct;
    QSet<QPair<int, int>> seen;
    for (const ConnectionRecord &connection : connections) {
        const QPair<int, int> ends(connection.startId, connection.endId);
        if (seen.contains(ends)) {
            result.repeated.append(connection);
        } else {
            seen.insert(ends);
            distinct.append(connection);
        }
    }
    CircleSearch search(distinct);
    search.run();
    for (int i = 0; i < distinct.size(); ++i) {
        (search.closesCircle().at(i) ? result.closingCircles : result.kept).append(distinct.at(i));
    }
    result.idsInCircles = search.idsInCircles();
    return result;
}
