#pragma once

#include "document/documentrecords.h"

/// A document's connections, parted by whether a flow can have them; each part in their order.
struct FilteredConnections
{
    QVector<ConnectionRecord> kept;
    QVector<ConnectionRecord> repeated;       ///< but for the first of each
    QVector<ConnectionRecord> closingCircles; ///< without them there is no circle
    QVector<int> idsInCircles;                ///< of all items on a circle, ascending
};

/// The search for circles begins at the items that nothing leads to, so what goes is what leads back.
FilteredConnections filterConnections(const QVector<ConnectionRecord> &connections);
