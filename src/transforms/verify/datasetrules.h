#pragma once

#include "transforms/verify/verifytotals.h"

class Dataset;

/// What an active rule of the table finds. Details for the report are set with the fails.
RuleOutcome checkDatasetRule(const VerifyRule &rule, const Dataset &dataset, bool caseSensitive);
