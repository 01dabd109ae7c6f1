#pragma once

#include <QtGlobal>

namespace spreadsheet {

/// The codes (Ptg) of which formulas in .xls files (Rgce) consist: in reverse Polish order, each operator behind its
/// operands. Operands and functions come in three classes: a reference has the code given here, `valueClass` and
/// `arrayClass` are added for the others.
struct OperandCode
{
    enum : quint8 {
        add = 0x03,             // PtgAdd
        subtract = 0x04,        // PtgSub
        multiply = 0x05,        // PtgMul
        divide = 0x06,          // PtgDiv
        power = 0x07,           // PtgPower
        join = 0x08,            // PtgConcat
        less = 0x09,            // PtgLt
        lessOrEqual = 0x0A,     // PtgLe
        equal = 0x0B,           // PtgEq
        greaterOrEqual = 0x0C,  // PtgGe
        greater = 0x0D,         // PtgGt
        notEqual = 0x0E,        // PtgNe
        intersection = 0x0F,    // PtgIsect
        unite = 0x10,           // PtgUnion
        range = 0x11,           // PtgRange
        plusSign = 0x12,        // PtgUplus
        minusSign = 0x13,       // PtgUminus
        percent = 0x14,         // PtgPercent
        parenthesis = 0x15,     // PtgParen
        missingArgument = 0x16, // PtgMissArg
        text = 0x17,            // PtgStr
        attribute = 0x19,       // PtgAttr
        error = 0x1C,           // PtgErr
        boolean = 0x1D,         // PtgBool
        integer = 0x1E,         // PtgInt
        number = 0x1F,          // PtgNum

        array = 0x20,               // PtgArray
        function = 0x21,            // PtgFunc
        functionOfMany = 0x22,      // PtgFuncVar
        name = 0x23,                // PtgName
        cell = 0x24,                // PtgRef
        area = 0x25,                // PtgArea
        referenceExpression = 0x29, // PtgMemFunc
        deletedCell = 0x2A,         // PtgRefErr
        deletedArea = 0x2B,         // PtgAreaErr
        relativeCell = 0x2C,        // PtgRefN
        relativeArea = 0x2D,        // PtgAreaN
        nameElsewhere = 0x39,       // PtgNameX
        sheetCell = 0x3A,           // PtgRef3d
        sheetArea = 0x3B,           // PtgArea3d
        deletedSheetCell = 0x3C,    // PtgRefErr3d
        deletedSheetArea = 0x3D,    // PtgAreaErr3d

        valueClass = 0x20,
        arrayClass = 0x40
    };

    // What an attribute says
    enum : quint8 {
        isVolatile = 0x01, // PtgAttrSemi
        condition = 0x02,  // PtgAttrIf
        choice = 0x04,     // PtgAttrChoose
        skip = 0x08,       // PtgAttrGoto
        sumOfOne = 0x10    // PtgAttrSum
    };

    static constexpr int referenceError = 0x17; // #REF! of PtgErr
};

} // namespace spreadsheet
