#pragma once

#include <QtGlobal>

namespace spreadsheet {

/// What a cell holds. A formula has the type of its last result.
enum class CellType : quint8 { Empty = 0, Number = 1, String = 2, Boolean = 3, Blank = 4, Error = 5, StrictDate = 6 };

/// A used cell in sixteen bytes.
struct CellRecord
{
    double number = 0.0; ///< a number or date, 0 or 1 of a boolean, an error's code, or a text's id, exactly
    quint32 format = 0;  ///< index of the book's formats; 0 is the default one
    quint16 column = 0;  ///< 0-based
    CellType type = CellType::Empty;
    bool isFormula = false; ///< the formula itself is kept by the grid

    quint32 textId() const { return static_cast<quint32>(number); }
    void setTextId(quint32 id)
    {
        number = id;
        type = CellType::String;
    }
};

} // namespace spreadsheet
