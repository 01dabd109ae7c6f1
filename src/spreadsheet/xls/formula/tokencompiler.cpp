#include "spreadsheet/xls/formula/tokencompiler.h"

#include "spreadsheet/xls/formula/operandcode.h"

#include <algorithm>
#include <cmath>

namespace spreadsheet {
namespace {

constexpr int longestText = 255; // UTF-16 units
constexpr int functionIf = 1, functionSum = 4, functionChoose = 100;
constexpr int callSize = 4; // bytes of a function of many arguments

void putPlace(ByteBuffer &out, const FormulaPlace &place)
{
    constexpr unsigned relativeColumn = 0x4000, relativeRow = 0x8000;
    out.u16(static_cast<unsigned>(place.column) | (place.columnIsRelative ? relativeColumn : 0)
            | (place.rowIsRelative ? relativeRow : 0));
}

} // namespace

bool TokenCompiler::compile(int root)
{
    if (hasVolatileFunction()) {
        putAttribute(OperandCode::isVolatile, 0);
    }
    return put(root, {Class::Value, false});
}

bool TokenCompiler::fail(const QString &error)
{
    m_error = error;
    return false;
}

unsigned TokenCompiler::classOffset(Class kind)
{
    switch (kind) {
    case Class::Reference:
        return 0;
    case Class::Value:
        return OperandCode::valueClass;
    case Class::Array:
        break;
    }
    return OperandCode::arrayClass;
}

/// The class of a reference or array constant: that asked for, but a value is an array inside what works on whole
/// arrays.
TokenCompiler::Class TokenCompiler::operandClass(Wanted wanted)
{
    return wanted.kind == Class::Value && wanted.inArray ? Class::Array : wanted.kind;
}

/// The class of a function that by itself gives `own`. A value can't become a reference. Where whole arrays are worked
/// on, values are arrays.
TokenCompiler::Class TokenCompiler::functionClass(Class own, Wanted wanted)
{
    const bool inArray = wanted.inArray || wanted.kind == Class::Array;
    if (wanted.kind == Class::Reference && (own == Class::Reference || !inArray)) {
        return own;
    }
    return inArray ? Class::Array : Class::Value;
}

bool TokenCompiler::hasVolatileFunction() const
{
    return std::any_of(m_tree.begin(), m_tree.end(),
        [](const FormulaNode &part) { return part.function && part.function->isVolatile; });
}

bool TokenCompiler::put(int index, Wanted wanted)
{
    const FormulaNode &part = node(index);
    switch (part.kind) {
    case FormulaNodeKind::Number:
        return putNumber(part.number);
    case FormulaNodeKind::Text:
        return putText(part.text);
    case FormulaNodeKind::Boolean:
    case FormulaNodeKind::Error:
        m_tokens.u8(part.kind == FormulaNodeKind::Error ? OperandCode::error : OperandCode::boolean);
        m_tokens.u8(static_cast<unsigned>(part.number));
        return true;
    case FormulaNodeKind::Missing:
        m_tokens.u8(OperandCode::missingArgument);
        return true;
    case FormulaNodeKind::Array:
        return putArray(part, wanted);
    case FormulaNodeKind::Reference:
        return putReference(part, wanted);
    case FormulaNodeKind::ReferenceOperator:
        return putReferenceOperator(index, wanted);
    case FormulaNodeKind::Function:
        return putFunction(part, wanted);
    case FormulaNodeKind::Parenthesis:
        if (!put(part.parts.front(), wanted)) {
            return false;
        }
        break;
    case FormulaNodeKind::Operator: {
        const Wanted operand = {Class::Value, wanted.inArray || wanted.kind == Class::Array};
        for (const int inner : part.parts) {
            if (!put(inner, operand)) {
                return false;
            }
        }
        break;
    }
    }
    m_tokens.u8(part.token);
    return true;
}

/// Whole numbers of 16 bits are PtgInt, all others PtgNum.
bool TokenCompiler::putNumber(double number)
{
    const auto whole = static_cast<unsigned>(number >= 0 && number <= 0xFFFF ? number : 0);
    if (number == whole && !std::signbit(number)) {
        m_tokens.u8(OperandCode::integer);
        m_tokens.u16(whole);
    } else {
        m_tokens.u8(OperandCode::number);
        m_tokens.f64(number);
    }
    return true;
}

bool TokenCompiler::putText(const QString &text)
{
    if (text.size() > longestText) {
        return fail(QStringLiteral("a text in it has more than %1 characters").arg(longestText));
    }
    m_tokens.u8(OperandCode::text);
    m_tokens.u8(static_cast<unsigned>(text.size()));
    m_tokens.characters(text);
    return true;
}

bool TokenCompiler::putReference(const FormulaNode &reference, Wanted wanted)
{
    const FormulaArea &area = reference.area;
    const bool hasSheet = reference.sheet >= 0;
    const unsigned code = area.isCell ? (hasSheet ? OperandCode::sheetCell : OperandCode::cell)
                                      : (hasSheet ? OperandCode::sheetArea : OperandCode::area);
    m_tokens.u8(code + classOffset(operandClass(wanted)));
    if (hasSheet) {
        m_tokens.u16(static_cast<unsigned>(reference.sheet));
    }
    m_tokens.u16(static_cast<unsigned>(area.first.row));
    if (!area.isCell) {
        m_tokens.u16(static_cast<unsigned>(area.last.row));
    }
    putPlace(m_tokens, area.first);
    if (!area.isCell) {
        putPlace(m_tokens, area.last);
    }
    return true;
}

/// An expression of references stands behind a PtgMemFunc, which gives its size and class.
bool TokenCompiler::putReferenceOperator(int index, Wanted wanted)
{
    m_tokens.u8(OperandCode::referenceExpression + classOffset(operandClass(wanted)));
    const int sizePlace = m_tokens.size();
    m_tokens.u16(0);
    if (!putReferencePart(index)) {
        return false;
    }
    m_tokens.setU16(sizePlace, static_cast<unsigned>(m_tokens.size() - sizePlace - 2));
    return true;
}

/// A part of such an expression, whose operators need no such code of their own.
bool TokenCompiler::putReferencePart(int index)
{
    const FormulaNode &part = node(index);
    if (part.kind != FormulaNodeKind::ReferenceOperator && part.kind != FormulaNodeKind::Parenthesis) {
        return put(index, {Class::Reference, false});
    }
    for (const int inner : part.parts) {
        if (!putReferencePart(inner)) {
            return false;
        }
    }
    m_tokens.u8(part.token);
    return true;
}

bool TokenCompiler::putFunction(const FormulaNode &call, Wanted wanted)
{
    const bool inArray = wanted.inArray || wanted.kind == Class::Array;
    const Class kind = functionClass(static_cast<Class>(call.function->result), wanted);
    if (kind == Class::Value && call.function->number == functionSum && call.parts.size() == 1) {
        return putArguments(call, inArray) && putAttribute(OperandCode::sumOfOne, 0) > 0;
    }
    const bool done = call.function->number == functionIf       ? putCondition(call, inArray)
                      : call.function->number == functionChoose ? putChoice(call, inArray)
                                                                : putArguments(call, inArray);
    if (done) {
        putCall(call, kind);
    }
    return done;
}

bool TokenCompiler::putArguments(const FormulaNode &call, bool inArray)
{
    for (size_t i = 0; i < call.parts.size(); ++i) {
        if (!putArgument(call, i, inArray)) {
            return false;
        }
    }
    return true;
}

bool TokenCompiler::putArgument(const FormulaNode &call, size_t argument, bool inArray)
{
    const std::string_view kinds = call.function->arguments;
    const char kind = kinds[std::min(argument, kinds.size() - 1)];
    return kind == 'S' ? put(call.parts[argument], {Class::Value, false})
                       : put(call.parts[argument], {static_cast<Class>(kind), inArray});
}

/// IF as the format has it: PtgAttrIf jumps to the second alternative, PtgAttrGoto behind each to the end of the call.
/// Distances of PtgAttrGoto are one less than the bytes to skip.
bool TokenCompiler::putCondition(const FormulaNode &call, bool inArray)
{
    if (!putArgument(call, 0, inArray)) {
        return false;
    }
    const int ifFalse = putAttribute(OperandCode::condition, 0);
    if (!putArgument(call, 1, inArray)) {
        return false;
    }
    const int skip = putAttribute(OperandCode::skip, callSize - 1);
    m_tokens.setU16(ifFalse, static_cast<unsigned>(m_tokens.size() - ifFalse - 2));
    if (call.parts.size() == 3) {
        if (!putArgument(call, 2, inArray)) {
            return false;
        }
        putAttribute(OperandCode::skip, callSize - 1);
        m_tokens.setU16(skip, static_cast<unsigned>(m_tokens.size() - skip - 2 + callSize - 1));
    }
    return true;
}

/// CHOOSE as the format has it: PtgAttrChoose with a table of jumps, counted from the table's beginning, and a
/// PtgAttrGoto behind each alternative.
bool TokenCompiler::putChoice(const FormulaNode &call, bool inArray)
{
    if (!putArgument(call, 0, inArray)) {
        return false;
    }
    const auto choices = static_cast<int>(call.parts.size()) - 1;
    const int table = putAttribute(OperandCode::choice, static_cast<unsigned>(choices)) + 2;
    m_tokens.zeros((choices + 1) * 2);
    std::vector<int> skips;
    for (int i = 0; i < choices; ++i) {
        m_tokens.setU16(table + i * 2, static_cast<unsigned>(m_tokens.size() - table));
        if (!putArgument(call, static_cast<size_t>(i) + 1, inArray)) {
            return false;
        }
        skips.push_back(putAttribute(OperandCode::skip, 0));
    }
    m_tokens.setU16(table + choices * 2, static_cast<unsigned>(m_tokens.size() - table));
    for (const int skip : skips) {
        m_tokens.setU16(skip, static_cast<unsigned>(m_tokens.size() - skip - 2 + callSize - 1));
    }
    return true;
}

void TokenCompiler::putCall(const FormulaNode &call, Class kind)
{
    if (call.function->hasFixedArguments()) {
        m_tokens.u8(OperandCode::function + classOffset(kind));
    } else {
        m_tokens.u8(OperandCode::functionOfMany + classOffset(kind));
        m_tokens.u8(static_cast<unsigned>(call.parts.size()));
    }
    m_tokens.u16(call.function->number);
}

/// Gives the place of the attribute's value.
int TokenCompiler::putAttribute(unsigned attribute, unsigned value)
{
    m_tokens.u8(OperandCode::attribute);
    m_tokens.u8(attribute);
    m_tokens.u16(value);
    return m_tokens.size() - 2;
}

/// A PtgArray; its items stand behind all codes of the formula (PtgExtraArray), row by row.
bool TokenCompiler::putArray(const FormulaNode &array, Wanted wanted)
{
    constexpr int reserved = 4;
    const Class kind = wanted.kind == Class::Value && !wanted.inArray ? Class::Value : Class::Array;
    const auto columns = static_cast<unsigned>(array.columnCount);
    const unsigned rows = static_cast<unsigned>(array.parts.size()) / columns;
    m_tokens.u8(OperandCode::array + classOffset(kind));
    for (ByteBuffer *out : {&m_tokens, &m_arrays}) {
        out->u8(columns - 1);
        out->u16(rows - 1);
    }
    m_tokens.zeros(reserved);
    return std::all_of(array.parts.begin(), array.parts.end(), [this](int item) { return putArrayItem(node(item)); });
}

bool TokenCompiler::putArrayItem(const FormulaNode &item)
{
    enum : unsigned {
        numberItem = 0x01,  // SerNum
        textItem = 0x02,    // SerStr
        booleanItem = 0x04, // SerBool
        errorItem = 0x10    // SerErr
    };
    switch (item.kind) {
    case FormulaNodeKind::Number:
        m_arrays.u8(numberItem);
        m_arrays.f64(item.number);
        return true;
    case FormulaNodeKind::Text:
        if (item.text.size() > longestText) {
            return fail(QStringLiteral("a text in it has more than %1 characters").arg(longestText));
        }
        m_arrays.u8(textItem);
        m_arrays.u16(static_cast<unsigned>(item.text.size()));
        m_arrays.characters(item.text);
        return true;
    default:
        m_arrays.u8(item.kind == FormulaNodeKind::Boolean ? booleanItem : errorItem);
        m_arrays.u8(static_cast<unsigned>(item.number));
        m_arrays.zeros(7);
        return true;
    }
}

} // namespace spreadsheet
