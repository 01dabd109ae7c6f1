#pragma once

#include "inputs/treetesting.h"

/// What the rules give for a text when all parsing is left to QDomDocument. Attributes come in any order.
TreeOutcome referenceXml(const QByteArray &bytes, const TreeReadOptions &options);
