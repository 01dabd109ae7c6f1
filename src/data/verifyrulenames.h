#pragma once

#include <QString>

/// Name of the column rule with this id, as verification and its tool tips show it; empty for no such rule.
QString verifyColumnRuleName(int ruleId);
/// Name of the rule for the whole table with this id; empty for no such rule.
QString verifyDatasetRuleName(int ruleId);
