#pragma once

#include <QList>
#include <QMap>
#include <QString>

class ChartNode;
class GraphScene;
class Node;
class OutputNode;

/// The outputs of a scene that aren't disabled.
QList<OutputNode *> writingOutputs(const GraphScene &scene);
/// The charts of a scene that write a picture and know where to.
QList<ChartNode *> writingCharts(const GraphScene &scene);
/// The items that a report tells of: inputs, transforms, writing outputs and writing charts, in this order.
QList<Node *> reportedNodes(const GraphScene &scene);

/// The figures of a report on one run, or on many added up.
struct RunTally
{
    int inputs = 0; ///< of items that are up to date, as the next three
    int transforms = 0;
    int outputs = 0;
    int charts = 0;
    int errors = 0;
    int warnings = 0;
    QMap<QString, int> outputWrites; ///< by path
    QMap<QString, int> chartWrites;
    QMap<QString, int> replacements; ///< writes that replace what stood there, by path and sheet

    /// Counts an item that is up to date by its kind.
    void countProcessed(const Node &node);
    /// Adds what the outputs and charts of a scene have written.
    void countWrites(const GraphScene &scene);
    /// Adds errors, warnings and writes.
    void add(const RunTally &run);
};
