#pragma once

#include "graph/graphenums.h"

#include <QElapsedTimer>
#include <QWidget>

class GraphScene;
class QToolButton;

/// How many items of the graph are up to date, need an update, have warnings, errors or no data: an icon with a count
/// for each of these that there are.
class NodeStatusWidget : public QWidget
{
    Q_OBJECT

public:
    explicit NodeStatusWidget(QWidget *parent = nullptr);

    void showCounts(const GraphScene &scene);
    /// The same, but during a run only a few times a second: counting takes all items each time.
    void showCountsInRun(const GraphScene &scene);
    /// Such as "3 ok" or "2 need update".
    static QString countText(NodeStatusIcon icon, int count);

signals:
    void iconClicked(NodeStatusIcon icon);

private:
    static constexpr int kinds = 5;
    QToolButton *m_buttons[kinds] = {};
    QElapsedTimer m_lastCount;
};
