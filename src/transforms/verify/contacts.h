#pragma once

#include "transforms/verify/celltext.h"

/// Tests of texts by which a person is reached.
namespace Contacts {

/// True when the text holds an e-mail address, be it among other text.
bool holdsEmail(CellText &text);
/// True when the whole text is a telephone number.
bool isTelephone(CellText &text);

} // namespace Contacts
