#include "spreadsheet/xls/formula/sharedtokens.h"

#include "spreadsheet/xls/formula/operandcode.h"

#include <QtEndian>

namespace spreadsheet {
namespace {

constexpr int toPlain = 8; // from PtgRefN to PtgRef, and from PtgAreaN to PtgArea

quint16 wordAt(const QByteArray &bytes, int at)
{
    return at >= 0 && at + 2 <= bytes.size() ? qFromLittleEndian<quint16>(bytes.constData() + at) : quint16(0);
}

void setWord(QByteArray &bytes, int at, int value)
{
    qToLittleEndian<quint16>(static_cast<quint16>(value), bytes.data() + at);
}

/// The code of an operand or function as a reference: bits 5 and 6 of a Ptg are its class.
int withoutClass(int code)
{
    return code < 0x40 ? code : 0x20 | (code & 0x1F);
}

/// A PtgAttr has two bytes of data; PtgAttrChoose has a table of jumps behind them, one more than it counts.
int attributeSize(const QByteArray &tokens, int at)
{
    constexpr int head = 4;
    const int kind = at + 1 < tokens.size() ? static_cast<uchar>(tokens.at(at + 1)) : 0;
    return kind & OperandCode::choice ? head + (wordAt(tokens, at + 2) + 1) * 2 : head;
}

int textSize(const QByteArray &tokens, int at)
{
    constexpr int head = 3;
    if (at + head > tokens.size()) {
        return 0;
    }
    const int length = static_cast<uchar>(tokens.at(at + 1));
    return head + (tokens.at(at + 2) & 1 ? length * 2 : length);
}

/// Bytes of a code and what belongs to it; 0 for an unknown one.
int tokenSize(const QByteArray &tokens, int at)
{
    const int code = withoutClass(static_cast<uchar>(tokens.at(at)));
    switch (code) {
    case OperandCode::text:
        return textSize(tokens, at);
    case OperandCode::attribute:
        return attributeSize(tokens, at);
    case OperandCode::error:
    case OperandCode::boolean:
        return 2;
    case OperandCode::integer:
    case OperandCode::function:
    case OperandCode::referenceExpression:
        return 3;
    case OperandCode::functionOfMany:
        return 4;
    case OperandCode::number:
        return 9;
    case OperandCode::name:
    case OperandCode::cell:
    case OperandCode::deletedCell:
    case OperandCode::relativeCell:
        return 5;
    case OperandCode::nameElsewhere:
    case OperandCode::sheetCell:
    case OperandCode::deletedSheetCell:
        return 7;
    case OperandCode::area:
    case OperandCode::deletedArea:
    case OperandCode::relativeArea:
        return 9;
    case OperandCode::sheetArea:
    case OperandCode::deletedSheetArea:
        return 11;
    default:
        return code >= OperandCode::add && code <= OperandCode::missingArgument ? 1 : 0;
    }
}

/// A formula shared by many cells (ShrFmla) gives places as offsets from the cell that uses it (PtgRefN, PtgAreaN).
/// Adds the cell's place to the parts of a corner that are relative to it.
void movePlace(QByteArray &tokens, int rowAt, int columnAt, int row, int column)
{
    constexpr int relativeColumn = 0x4000, relativeRow = 0x8000, columnMask = 0xFF;
    const int place = wordAt(tokens, columnAt);
    if (place & relativeRow) {
        setWord(tokens, rowAt, wordAt(tokens, rowAt) + row); // beyond the last row it goes on with the first
    }
    if (place & relativeColumn) {
        setWord(tokens, columnAt, (place & ~columnMask) | ((place + column) & columnMask));
    }
}

} // namespace

bool expandSharedTokens(QByteArray *tokens, int row, int column)
{
    QByteArray expanded = *tokens;
    for (int at = 0; at < expanded.size();) {
        const int size = tokenSize(expanded, at);
        if (size == 0 || size > expanded.size() - at) {
            return false;
        }
        const int code = static_cast<uchar>(expanded.at(at));
        if (withoutClass(code) == OperandCode::relativeCell) {
            movePlace(expanded, at + 1, at + 3, row, column);
            expanded[at] = static_cast<char>(code - toPlain);
        } else if (withoutClass(code) == OperandCode::relativeArea) {
            movePlace(expanded, at + 1, at + 5, row, column);
            movePlace(expanded, at + 3, at + 7, row, column);
            expanded[at] = static_cast<char>(code - toPlain);
        }
        at += size;
    }
    *tokens = expanded;
    return true;
}

} // namespace spreadsheet
