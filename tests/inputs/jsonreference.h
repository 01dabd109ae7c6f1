#pragma once

#include "inputs/treetesting.h"

/// What the rules give for a text when all parsing is left to QJsonDocument.
TreeOutcome referenceJson(const QByteArray &bytes, const TreeReadOptions &options);
