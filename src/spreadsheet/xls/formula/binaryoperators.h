#pragma once

#include "spreadsheet/xls/formula/formulatoken.h"
#include "spreadsheet/xls/formula/operandcode.h"

namespace spreadsheet {

/// An operator between two values. A higher precedence binds tighter.
struct BinaryOperator
{
    FormulaSymbol symbol;
    quint8 token;
    int precedence;
};
inline constexpr BinaryOperator binaryOperators[] = {{FormulaSymbol::Less, OperandCode::less, 1},
    {FormulaSymbol::LessOrEqual, OperandCode::lessOrEqual, 1}, {FormulaSymbol::Equal, OperandCode::equal, 1},
    {FormulaSymbol::GreaterOrEqual, OperandCode::greaterOrEqual, 1}, {FormulaSymbol::Greater, OperandCode::greater, 1},
    {FormulaSymbol::NotEqual, OperandCode::notEqual, 1}, {FormulaSymbol::Join, OperandCode::join, 2},
    {FormulaSymbol::Plus, OperandCode::add, 3}, {FormulaSymbol::Minus, OperandCode::subtract, 3},
    {FormulaSymbol::Times, OperandCode::multiply, 4}, {FormulaSymbol::Divide, OperandCode::divide, 4},
    {FormulaSymbol::Power, OperandCode::power, 5}};
constexpr int highestPrecedence = 5;

/// Null for any other symbol.
inline const BinaryOperator *binaryOperator(FormulaSymbol symbol)
{
    for (const BinaryOperator &candidate : binaryOperators) {
        if (candidate.symbol == symbol) {
            return &candidate;
        }
    }
    return nullptr;
}

} // namespace spreadsheet
