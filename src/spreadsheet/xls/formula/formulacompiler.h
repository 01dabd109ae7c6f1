#pragma once

#include "spreadsheet/xls/formula/formulaparser.h"

#include <QByteArray>

namespace spreadsheet {

/// A formula as .xls files hold it.
struct CompiledFormula
{
    QByteArray tokens; ///< the codes, without their size
    QByteArray arrays; ///< what follows the codes
};

/// Translates a formula, UTF-8 and without its equals sign. False for one that .xls files can't hold or that is none;
/// `reason` then says why, as a part of a sentence.
bool compileFormula(const QByteArray &text, const SheetNumbers &sheets, CompiledFormula *compiled, QString *reason);

} // namespace spreadsheet
