#pragma once

#include "spreadsheet/xls/formula/formulatoken.h"
#include "spreadsheet/xls/formula/functiontable.h"

#include <vector>

namespace spreadsheet {

enum class FormulaNodeKind : quint8 {
    Number,
    Text,
    Boolean,
    Error,
    Missing, ///< an argument that is left out
    Array,
    Reference,
    Operator,
    ReferenceOperator, ///< a range, union or intersection
    Parenthesis,
    Function
};

/// A part of a formula and, by their numbers in the tree, its own parts.
struct FormulaNode
{
    FormulaNodeKind kind = FormulaNodeKind::Missing;
    quint8 token = 0;    ///< of an operator, as .xls files write it
    int sheet = -1;      ///< of a reference to a sheet: its number in the book's list of references
    int columnCount = 0; ///< of an array; its parts lie row by row
    double number = 0.0;
    QString text;
    FormulaArea area;
    const FunctionInfo *function = nullptr;
    std::vector<int> parts;
};

/// A formula's parts; each one stands behind those that it is made of.
using FormulaTree = std::vector<FormulaNode>;

} // namespace spreadsheet
