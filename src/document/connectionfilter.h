#pragma once

#include "document/documentrecords.h"

/// The connections, in their order, without repeated ones and without those that would close a cycle. Search for
/// cycles begins at the nodes that nothing leads to, so what goes is what leads back.
QVector<ConnectionRecord> withoutRepeatsAndCycles(const QVector<ConnectionRecord> &connections);
