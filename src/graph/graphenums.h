#pragma once

#include <QGraphicsItem>
#include <QList>
#include <QPair>
#include <QString>

/// Where a node stands between two runs.
enum class NodeState { NeedsProcessing = 0, Processing = 1, Processed = 2, Failed = 3 };

/// The disc on a node's box, and what the status bar counts. None paints nothing.
enum class NodeStatusIcon {
    Empty = 0,
    Processing = 1,
    UpToDate = 2,
    Warning = 3,
    Error = 4,
    NeedsUpdate = 5,
    None = 6
};

/// What a run takes on; EverythingReleasing drops each dataset once its consumers have run.
enum class RunMode { Everything = 0, Changes = 1, Selected = 2, EverythingReleasing = 3 };

/// Which connections of a node.
enum class Direction { Outgoing = 0, Incoming = 1, Both = 2 };

/// Values of QGraphicsItem::type() on the canvas.
namespace ItemType {
enum Type {
    Input = QGraphicsItem::UserType + 1,
    Transform = QGraphicsItem::UserType + 2,
    Output = QGraphicsItem::UserType + 3,
    Note = QGraphicsItem::UserType + 4,
    Chart = QGraphicsItem::UserType + 5,
    Connection = QGraphicsItem::UserType + 20,
    ConnectionGuide = QGraphicsItem::UserType + 21,
    ConnectFromOverlay = QGraphicsItem::UserType + 22,
    ConnectToOverlay = QGraphicsItem::UserType + 23,
    TimingBar = QGraphicsItem::UserType + 24
};
}

/// Where the arrow of a note points. The numbers stand in documents.
struct NoteArrow
{
    enum Arrow { NoArrow = 0, Up = 1, Right = 2, Down = 3, Left = 4 };
};

/// One labelled line of a node's information, such as "Status" and "Up to date".
using InfoRow = QPair<QString, QString>;
using InfoRows = QList<InfoRow>;
