#pragma once

#include "spreadsheet/xls/bytebuffer.h"
#include "spreadsheet/xls/formula/formulatree.h"

namespace spreadsheet {

/// Writes a formula's tree as the codes of .xls files: operands before their operators, each in the class (reference,
/// value or array) that its place asks for, since the program that opens the file trusts the class.
class TokenCompiler
{
public:
    explicit TokenCompiler(const FormulaTree &tree)
        : m_tree(tree)
    {
    }

    /// False when a part is larger than its form in the file can be, see error().
    bool compile(int root);
    const ByteBuffer &tokens() const { return m_tokens; }
    /// The constants of arrays, which follow the codes.
    const ByteBuffer &arrays() const { return m_arrays; }
    const QString &error() const { return m_error; }

private:
    enum class Class : char { Reference = 'R', Value = 'V', Array = 'A' };
    /// What a place asks for.
    struct Wanted
    {
        Class kind;
        bool inArray; ///< inside something that works on whole arrays: values are arrays there
    };

    const FormulaNode &node(int index) const { return m_tree[static_cast<size_t>(index)]; }
    bool fail(const QString &error);
    static unsigned classOffset(Class kind);
    static Class operandClass(Wanted wanted);
    static Class functionClass(Class own, Wanted wanted);
    bool hasVolatileFunction() const;

    bool put(int index, Wanted wanted);
    bool putNumber(double number);
    bool putText(const QString &text);
    bool putReference(const FormulaNode &reference, Wanted wanted);
    bool putReferenceOperator(int index, Wanted wanted);
    bool putReferencePart(int index);
    bool putFunction(const FormulaNode &call, Wanted wanted);
    bool putArguments(const FormulaNode &call, bool inArray);
    bool putCondition(const FormulaNode &call, bool inArray);
    bool putChoice(const FormulaNode &call, bool inArray);
    bool putArgument(const FormulaNode &call, size_t argument, bool inArray);
    void putCall(const FormulaNode &call, Class kind);
    int putAttribute(unsigned attribute, unsigned value);
    bool putArray(const FormulaNode &array, Wanted wanted);
    bool putArrayItem(const FormulaNode &item);

    const FormulaTree &m_tree;
    ByteBuffer m_tokens;
    ByteBuffer m_arrays;
    QString m_error;
};

} // namespace spreadsheet
