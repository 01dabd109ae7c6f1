#pragma once

#include <QtGlobal>
#include <string_view>

namespace spreadsheet {

/// A worksheet function as .xls files know it.
struct FunctionInfo
{
    const char *name; ///< in capitals
    quint16 number;   ///< the published one
    quint8 minArguments, maxArguments;
    char result;             ///< what it gives: 'R' a reference, 'V' a value, 'A' an array
    const char *arguments;   ///< what it takes, a letter each; the last one stands for all that follow
    bool isVolatile = false; ///< worked out anew with each change of the sheet

    bool hasFixedArguments() const { return minArguments == maxArguments; }
};

/// Null for a function that .xls files have no number for. `name` in capitals.
const FunctionInfo *findFunction(std::string_view name);

} // namespace spreadsheet
