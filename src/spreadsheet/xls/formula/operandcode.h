#pragma once

#include <QtGlobal>

namespace spreadsheet {

/// The codes of which formulas in .xls files consist. Operands and functions come in three classes: a reference has the
/// code given here, `valueClass` and `arrayClass` are added for the others.
struct OperandCode
{
    enum : quint8 {
        add = 0x03,
        subtract = 0x04,
        multiply = 0x05,
        divide = 0x06,
        power = 0x07,
        join = 0x08,
        less = 0x09,
        lessOrEqual = 0x0A,
        equal = 0x0B,
        greaterOrEqual = 0x0C,
        greater = 0x0D,
        notEqual = 0x0E,
        intersection = 0x0F,
        unite = 0x10,
        range = 0x11,
        plusSign = 0x12,
        minusSign = 0x13,
        percent = 0x14,
        parenthesis = 0x15,
        missingArgument = 0x16,
        text = 0x17,
        attribute = 0x19,
        error = 0x1C,
        boolean = 0x1D,
        integer = 0x1E,
        number = 0x1F,

        array = 0x20,
        function = 0x21,
        functionOfMany = 0x22,
        cell = 0x24,
        area = 0x25,
        referenceExpression = 0x29,
        sheetCell = 0x3A,
        sheetArea = 0x3B,

        valueClass = 0x20,
        arrayClass = 0x40
    };

    // What an attribute says
    enum : quint8 { isVolatile = 0x01, condition = 0x02, choice = 0x04, skip = 0x08, sumOfOne = 0x10 };

    static constexpr int referenceError = 0x17;
};

} // namespace spreadsheet
