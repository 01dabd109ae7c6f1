#pragma once

#include <QByteArray>

namespace spreadsheet {

/// Makes the codes of a formula that several cells share those of one of the cells: what is relative to a cell becomes
/// a place in the sheet. False, and nothing changed, when a code is unknown or
/// reaches beyond the end.
bool expandSharedTokens(QByteArray *tokens, int row, int column);

} // namespace spreadsheet
