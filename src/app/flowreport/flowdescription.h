#pragma once

#include "graph/graphenums.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class GraphScene;

/// What a report tells of an item of a flow. It holds no cells of tables.
struct FlowItem
{
    int id = -1;
    QString kind;        ///< "Input", "Transform" and so on
    QString name;        ///< as on the canvas
    QString description; ///< what it does, in a sentence
    QString state;       ///< empty when it is up to date
    QStringList sources; ///< names of the items upstream
    QList<int> sourceIds;
    InfoRows options; ///< those that are set
    QList<int> rowsBefore;
    QList<int> columnsBefore;
    int rowsAfter = 0;
    int columnsAfter = 0;
    bool hasRun = false;
    QString comment;
    QStringList warnings;
};

/// What a report tells of a whole flow.
struct FlowDescription
{
    QString name;          ///< of the document's file; empty for one that was never saved
    QString notes;         ///< of the document
    QStringList noteTexts; ///< on the canvas
    QList<FlowItem> items; ///< each behind those that it reads
    QByteArray picture;    ///< of the canvas, as PNG; empty for an empty one
};

/// The flow as it is now: its figures are those of the tables that are there. `notes` are those of the document.
FlowDescription describeFlow(GraphScene &scene, const QString &notes);
