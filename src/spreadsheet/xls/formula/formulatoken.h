#pragma once

#include <QString>

namespace spreadsheet {

/// A corner of a reference, 0-based.
struct FormulaPlace
{
    int row = 0, column = 0;
    bool rowIsRelative = false, columnIsRelative = false;
};

/// A cell or a rectangle of cells in a formula.
struct FormulaArea
{
    FormulaPlace first, last;
    bool isCell = true; ///< a single cell, not a rectangle
};

enum class FormulaTokenKind : quint8 { End, Number, Text, Boolean, Error, Reference, Sheet, Function, Symbol };

enum class FormulaSymbol : quint8 {
    None,
    Plus,
    Minus,
    Times,
    Divide,
    Power,
    Percent,
    Join,
    Less,
    LessOrEqual,
    Equal,
    GreaterOrEqual,
    Greater,
    NotEqual,
    Colon,
    Comma,
    Semicolon,
    OpenParenthesis,
    CloseParenthesis,
    OpenBrace,
    CloseBrace
};

/// A word of a formula's text.
struct FormulaToken
{
    FormulaTokenKind kind = FormulaTokenKind::End;
    FormulaSymbol symbol = FormulaSymbol::None;
    bool isAfterSpace = false;
    double number = 0.0; ///< a number, 0 or 1 of a boolean, or an error's code
    QString text;        ///< a text, a sheet's name, or a function's name in capitals
    FormulaArea area;
};

} // namespace spreadsheet
