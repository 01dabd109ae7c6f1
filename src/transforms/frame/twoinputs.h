#pragma once

#include <QString>

class Dataset;
class Parameter;

/// What the transforms with a top and a bottom input share.
namespace TwoInputs {

/// The text when the second input is missing.
QString connectSecond();
/// When the item of `top` stands lower on the canvas than that of `bottom`, swaps their items and their columns; true
/// when it did. Null parameters and missing items change nothing.
bool swapWhenCrossed(Parameter *top, Parameter *bottom);
/// The result of putting `bottom` to the right of `top`: names of both when one has a header, numbers standing in for
/// missing names; ids of both, the second of equal ids null. `result` has the columns of both already.
void nameSideBySide(Dataset &result, const Dataset &top, const Dataset &bottom);

} // namespace TwoInputs
