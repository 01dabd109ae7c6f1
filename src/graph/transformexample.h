#pragma once

#include <QString>

class TransformNode;

/// A row that shows what a transform does with its options as they are now, before it has run with them.
namespace TransformExample {

/// Whether a kind treats each row by itself, so that a few rows show what happens to all.
bool canBeShown(const TransformNode &node);
/// One line, such as "Row 3, 'Name': 'ann' becomes 'Ann'", from the first rows of the input. Empty where that can't be
/// told: no input, no rows, or a kind that doesn't treat each row by itself.
QString lineFor(const TransformNode &node);

} // namespace TransformExample
