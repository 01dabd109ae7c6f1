#pragma once

#include <QString>

/// The mark that is passed each time that the rows transformed so far have grown by another power of ten.
namespace RowsMilestone {

/// Notes a mark that has been passed; returns its power of ten, or 0 when none has.
int advance();
/// What to say on passing it.
QString message(int power);

} // namespace RowsMilestone
