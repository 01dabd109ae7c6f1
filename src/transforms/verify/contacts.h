#pragma once

#include "transforms/verify/utf16cell.h"

/// Tests of texts by which a person is reached.
namespace Contacts {

/// True when the text holds an e-mail address, be it among other text.
bool holdsEmail(Utf16Cell &text);
/// True when the whole text is a telephone number.
bool isTelephone(Utf16Cell &text);

} // namespace Contacts
