#pragma once

#include <QString>

class Dataset;

/// How many columns and rows `after` has more or less than `before`, such as "1 col removed, 12 rows added"; empty when
/// their numbers are the same.
QString sizeReport(const Dataset &before, const Dataset &after);
